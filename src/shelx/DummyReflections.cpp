#include "shelx/DummyReflections.h"

#include <cmath>

#include "crystal/CellGeometry.h"
#include "shelx/HklFile.h"
#include "textio/Numbers.h"

namespace talven {
namespace {

using Index = std::int64_t;

constexpr double kBeyondSphere = 0.9;

std::int32_t LimitOf(float edge) {
  return Truncate(NearestWhole(0.5 * edge) + 1.0);
}

bool IsOdd(Index value) {
  return value % 2 != 0;
}

bool IsAbsent(AbsenceRule rule, Index h, Index k, Index l) {
  switch (rule) {
    case AbsenceRule::kA:
      return IsOdd(k + l);
    case AbsenceRule::kB:
      return IsOdd(h + l);
    case AbsenceRule::kC:
      return IsOdd(h + k);
    case AbsenceRule::kF:
      return IsOdd(h + k) || IsOdd(k + l);
    case AbsenceRule::kI:
      return IsOdd(h + k + l);
    case AbsenceRule::kNone:
      break;
  }
  return false;
}

/// Bragg's law, 2d sin theta = lambda. On purpose the limit is tested before the sine is stored.
void WriteReflection(const ReciprocalCell& cell, float wavelength, Index h, Index k, Index l, TextOutput& hkl) {
  const double q = InverseSquareSpacing(cell, h, k, l);
  const double sine = std::sqrt(q) * 0.5 * wavelength;
  const float sin_theta = Store(sine);
  const float two_theta =
      Store(sine > 1.0 ? kBeyondSphere : 2.0 * kDegreesPerRadian * std::asin(static_cast<double>(sin_theta)));
  WriteDummyRow({h, k, l, sin_theta, two_theta}, hkl);
}

}  // namespace

HklLimits LimitsOf(const UnitCell& cell) {
  return {LimitOf(cell.a), LimitOf(cell.b), LimitOf(cell.c)};
}

AbsenceRule RuleOfLattice(std::int32_t letter) {
  switch (letter) {
    case 'A':
      return AbsenceRule::kA;
    case 'B':
      return AbsenceRule::kB;
    case 'C':
      return AbsenceRule::kC;
    case 'F':
      return AbsenceRule::kF;
    case 'I':
      return AbsenceRule::kI;
    default:
      return AbsenceRule::kNone;
  }
}

ReciprocalCell DeriveDummyCell(const UnitCell& cell) {
  return DeriveReciprocalCell(cell, VolumeCosines::kUnrounded);
}

std::int64_t LayerCount(const HklLimits& limits) {
  // Empty layers may be so many that to go through them would take years.
  if (limits.HMax < 0 || limits.KMax < 0 || limits.LMax < 0) return 0;
  return std::int64_t{limits.HMax} + 1;
}

void WriteDummyLayer(const DummyList& list, std::int64_t h, TextOutput& hkl) {
  const Index KMax = list.limits.KMax;
  const Index LMax = list.limits.LMax;
  const float wavelength = list.wavelength;
  for (Index k = -KMax; k <= KMax; ++k) {
    const Index first = h != 0 ? -LMax : k != 0 ? 0 : 1;
    for (Index l = first; l <= LMax; ++l)
      if (!IsAbsent(list.rule, h, k, l)) WriteReflection(list.cell, wavelength, h, k, l, hkl);
  }
}

}  // namespace talven
