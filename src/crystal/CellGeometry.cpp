#include "crystal/CellGeometry.h"

#include <cmath>

#include "textio/Numbers.h"

namespace talven {
namespace {

double Radians(float degrees) {
  return degrees * (1.0 / kDegreesPerRadian);
}

double SineOf(float degrees) {
  return std::sin(Radians(degrees));
}

/// 0 no equal lengths, 1 a equals b, 2 all three equal.
std::int32_t LengthCode(const UnitCell& cell) {
  const double a = cell.a;
  const double b = cell.b;
  const double c = cell.c;
  const double near = 0.05 * a;
  if (!(std::fabs(a - b) < near)) return 0;
  return std::fabs(b - c) < near ? 2 : 1;
}

std::int32_t AngleCode(const UnitCell& cell, double tolerance) {
  const auto is_at = [tolerance](float angle, double degrees) { return std::fabs(angle - degrees) < tolerance; };
  if (!is_at(cell.alpha, 90.0) || !is_at(cell.gamma, 90.0)) return 0;
  if (is_at(cell.beta, 90.0)) return 2;
  return is_at(cell.beta, 120.0) ? 3 : 1;
}

}  // namespace

double CosineOf(float degrees) {
  return std::cos(Radians(degrees));
}

/// V = abc sqrt(1 - cos^2 alpha - cos^2 beta - cos^2 gamma + 2 cos alpha cos beta cos gamma), International Tables.
float CellVolume(const UnitCell& cell, double ca, double cb, double cg) {
  const float root = Store(std::fabs(1.0 - ca * ca - cb * cb - cg * cg + 2.0 * ca * cb * cg));
  return Store(static_cast<double>(cell.a) * cell.b * cell.c * std::sqrt(static_cast<double>(root)));
}

void DeriveReciprocalCell(UnitCell& cell) {
  const double a = cell.a;
  const double b = cell.b;
  const double c = cell.c;
  const double sa = SineOf(cell.alpha);
  const double sb = SineOf(cell.beta);
  const double sg = SineOf(cell.gamma);
  const double ca = cell.CosAlpha;
  const double cb = cell.CosBeta;
  const double cg = cell.CosGamma;
  cell.AStar = Store(b * c * sa / cell.Volume);
  cell.BStar = Store(a * c * sb / cell.Volume);
  cell.CStar = Store(a * b * sg / cell.Volume);
  cell.AStarSquared = Store(static_cast<double>(cell.AStar) * cell.AStar);
  cell.BStarSquared = Store(static_cast<double>(cell.BStar) * cell.BStar);
  cell.CStarSquared = Store(static_cast<double>(cell.CStar) * cell.CStar);
  cell.CosAlphaStar = Store((cb * cg - ca) / (sb * sg));
  cell.CosBetaStar = Store((ca * cg - cb) / (sa * sg));
  cell.CosGammaStar = Store((ca * cb - cg) / (sa * sb));
}

float TwoThetaOf(float sin_theta) {
  const double s = sin_theta;
  return Store(std::atan(s / std::sqrt((1.0 - s) * (1.0 + s))) * 2.0 * kDegreesPerRadian);
}

float InverseSquareSpacing(const UnitCell& cell, std::int64_t h, std::int64_t k, std::int64_t l) {
  const double as = cell.AStar;
  const double bs = cell.BStar;
  const double cs = cell.CStar;
  const auto product = [](std::int64_t x, std::int64_t y) { return static_cast<double>(x * y); };
  const double q = product(h, h) * cell.AStarSquared + product(k, k) * cell.BStarSquared +
                   product(l, l) * cell.CStarSquared + product(2 * h, k) * as * bs * cell.CosGammaStar +
                   product(2 * h, l) * as * cs * cell.CosBetaStar + product(2 * k, l) * bs * cs * cell.CosAlphaStar;
  return Store(std::fabs(q));
}

float ComputeSinTheta(const UnitCell& cell, float wavelength, std::int32_t h, std::int32_t k, std::int32_t l) {
  const double q = InverseSquareSpacing(cell, h, k, l);
  return Store(std::sqrt(q) * 0.5 * wavelength);
}

std::int32_t ClassifyCell(const UnitCell& cell, double tolerance) {
  const std::int32_t code = 10 * LengthCode(cell) + AngleCode(cell, tolerance);
  switch (code) {
    case 0:
    case 10:
      return 1;
    case 1:
      return 2;
    case 2:
      return 3;
    case 12:
      return 4;
    case 22:
      return 5;
    case 20:
      return 6;
    case 13:
      return 7;
    default:
      return code;
  }
}

}  // namespace talven
