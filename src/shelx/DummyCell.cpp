#include "shelx/DummyCell.h"

#include <cmath>

#include "textio/Numbers.h"

namespace talven {
namespace {

double Radians(float degrees) {
  return degrees * (1.0 / kDegreesPerRadian);
}

/// Stores the cosines, and the volume that follows from them unstored (International Tables for Crystallography C).
void DeriveVolume(UnitCell& cell) {
  const double ca = std::cos(Radians(cell.alpha));
  const double cb = std::cos(Radians(cell.beta));
  const double cg = std::cos(Radians(cell.gamma));
  cell.CosAlpha = Store(ca);
  cell.CosBeta = Store(cb);
  cell.CosGamma = Store(cg);
  const float t = Store(std::fabs(1.0 - ca * ca - cb * cb - cg * cg + 2.0 * ca * cb * cg));
  cell.Volume = Store(static_cast<double>(cell.a) * cell.b * cell.c * std::sqrt(static_cast<double>(t)));
}

float StoredSquare(float value) {
  return Store(static_cast<double>(value) * value);
}

}  // namespace

void DeriveDummyCell(UnitCell& cell) {
  DeriveVolume(cell);
  const double a = cell.a;
  const double b = cell.b;
  const double c = cell.c;
  const double ca = cell.CosAlpha;
  const double cb = cell.CosBeta;
  const double cg = cell.CosGamma;
  const double sa = std::sin(Radians(cell.alpha));
  const double sb = std::sin(Radians(cell.beta));
  const double sg = std::sin(Radians(cell.gamma));
  cell.AStar = Store(b * c * sa / cell.Volume);
  cell.BStar = Store(a * c * sb / cell.Volume);
  cell.CStar = Store(a * b * sg / cell.Volume);
  cell.AStarSquared = StoredSquare(cell.AStar);
  cell.BStarSquared = StoredSquare(cell.BStar);
  cell.CStarSquared = StoredSquare(cell.CStar);
  cell.CosAlphaStar = Store((cg * cb - ca) / (sb * sg));
  cell.CosBetaStar = Store((ca * cg - cb) / (sa * sg));
  cell.CosGammaStar = Store((cb * ca - cg) / (sa * sb));
}

}  // namespace talven
