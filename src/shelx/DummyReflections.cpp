#include "shelx/DummyReflections.h"

#include <cmath>

#include "crystal/CellGeometry.h"
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
void WriteRow(const UnitCell& cell, Index h, Index k, Index l, OutputFile& hkl) {
  const double q = InverseSquareSpacing(cell, h, k, l);
  const double sine = std::sqrt(q) * 0.5 * cell.Wavelength;
  const float sin_theta = Store(sine);
  const float two_theta =
      Store(sine > 1.0 ? kBeyondSphere : 2.0 * kDegreesPerRadian * std::asin(static_cast<double>(sin_theta)));
  hkl.WriteLine(Record().I(h, 4).I(k, 4).I(l, 4).A("  100.00    1.00").F(sin_theta, 8, 2).F(two_theta, 8, 2));
}

}  // namespace

HklLimits LimitsOf(const UnitCell& cell) {
  return {LimitOf(cell.a), LimitOf(cell.b), LimitOf(cell.c)};
}

void WriteDummyReflections(const UnitCell& cell, const HklLimits& limits, AbsenceRule rule, OutputFile& hkl) {
  const Index KMax = limits.KMax;
  const Index LMax = limits.LMax;
  if (KMax < 0 || LMax < 0) return;  // The empty loop may stand within others that would take years.
  for (Index h = 0; h <= limits.HMax; ++h)
    for (Index k = -KMax; k <= KMax; ++k)
      for (Index l = h == 0 ? 0 : -LMax; l <= LMax; ++l) {
        if ((h == 0 && k == 0 && l == 0) || IsAbsent(rule, h, k, l)) continue;
        WriteRow(cell, h, k, l, hkl);
      }
}

}  // namespace talven
