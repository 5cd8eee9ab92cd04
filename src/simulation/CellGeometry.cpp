#include "simulation/CellGeometry.h"

#include <cmath>

#include "textio/Numbers.h"

namespace talven {
namespace {

double SineOf(float degrees) {
  return std::sin(degrees * (1.0 / kDegreesPerRadian));
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

float ComputeSinTheta(const UnitCell& cell, float wavelength, std::int32_t h, std::int32_t k, std::int32_t l) {
  const double as = cell.AStar;
  const double bs = cell.BStar;
  const double cs = cell.CStar;
  const double q = static_cast<double>(h * h) * cell.AStarSquared + static_cast<double>(k * k) * cell.BStarSquared +
                   static_cast<double>(l * l) * cell.CStarSquared + (2 * h * k) * as * bs * cell.CosGammaStar +
                   (2 * h * l) * as * cs * cell.CosBetaStar + (2 * k * l) * bs * cs * cell.CosAlphaStar;
  const float magnitude = Store(std::fabs(q));
  return Store(std::sqrt(static_cast<double>(magnitude)) * 0.5 * wavelength);
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
