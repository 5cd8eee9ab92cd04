#include "crystal/CellGeometry.h"

#include <cmath>

#include "textio/Numbers.h"

namespace talven {
namespace {

double Radians(float degrees) {
  return degrees * (1.0 / kDegreesPerRadian);
}

double CosineOf(float degrees) {
  return std::cos(Radians(degrees));
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

/// V = abc sqrt(1 - cos^2 alpha - cos^2 beta - cos^2 gamma + 2 cos alpha cos beta cos gamma), International Tables.
float VolumeOf(const UnitCell& cell, double ca, double cb, double cg) {
  const float root = Store(std::fabs(1.0 - ca * ca - cb * cb - cg * cg + 2.0 * ca * cb * cg));
  return Store(static_cast<double>(cell.a) * cell.b * cell.c * std::sqrt(static_cast<double>(root)));
}

/// The cosines and the volume.
ReciprocalCell BeginReciprocalCell(const UnitCell& cell, VolumeCosines cosines) {
  const double ca = CosineOf(cell.alpha);
  const double cb = CosineOf(cell.beta);
  const double cg = CosineOf(cell.gamma);
  ReciprocalCell reciprocal{.CosAlpha = Store(ca), .CosBeta = Store(cb), .CosGamma = Store(cg)};
  reciprocal.Volume = cosines == VolumeCosines::kUnrounded
                          ? VolumeOf(cell, ca, cb, cg)
                          : VolumeOf(cell, reciprocal.CosAlpha, reciprocal.CosBeta, reciprocal.CosGamma);
  return reciprocal;
}

}  // namespace

ReciprocalCell DeriveReciprocalCell(const UnitCell& cell, VolumeCosines cosines) {
  ReciprocalCell reciprocal = BeginReciprocalCell(cell, cosines);
  const double a = cell.a;
  const double b = cell.b;
  const double c = cell.c;
  const double sa = SineOf(cell.alpha);
  const double sb = SineOf(cell.beta);
  const double sg = SineOf(cell.gamma);
  const double ca = reciprocal.CosAlpha;
  const double cb = reciprocal.CosBeta;
  const double cg = reciprocal.CosGamma;
  reciprocal.AStar = Store(b * c * sa / reciprocal.Volume);
  reciprocal.BStar = Store(a * c * sb / reciprocal.Volume);
  reciprocal.CStar = Store(a * b * sg / reciprocal.Volume);
  reciprocal.AStarSquared = Store(static_cast<double>(reciprocal.AStar) * reciprocal.AStar);
  reciprocal.BStarSquared = Store(static_cast<double>(reciprocal.BStar) * reciprocal.BStar);
  reciprocal.CStarSquared = Store(static_cast<double>(reciprocal.CStar) * reciprocal.CStar);
  reciprocal.CosAlphaStar = Store((cb * cg - ca) / (sb * sg));
  reciprocal.CosBetaStar = Store((ca * cg - cb) / (sa * sg));
  reciprocal.CosGammaStar = Store((ca * cb - cg) / (sa * sb));
  return reciprocal;
}

float TwoThetaOf(float sin_theta) {
  const double s = sin_theta;
  return Store(std::atan(s / std::sqrt((1.0 - s) * (1.0 + s))) * 2.0 * kDegreesPerRadian);
}

float InverseSquareSpacing(const ReciprocalCell& cell, std::int64_t h, std::int64_t k, std::int64_t l) {
  const double as = cell.AStar;
  const double bs = cell.BStar;
  const double cs = cell.CStar;
  const auto product = [](std::int64_t x, std::int64_t y) { return static_cast<double>(x * y); };
  const double q = product(h, h) * cell.AStarSquared + product(k, k) * cell.BStarSquared +
                   product(l, l) * cell.CStarSquared + product(2 * h, k) * as * bs * cell.CosGammaStar +
                   product(2 * h, l) * as * cs * cell.CosBetaStar + product(2 * k, l) * bs * cs * cell.CosAlphaStar;
  return Store(std::fabs(q));
}

float ComputeSinTheta(const ReciprocalCell& cell, float wavelength, std::int32_t h, std::int32_t k, std::int32_t l) {
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
