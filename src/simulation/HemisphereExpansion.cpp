#include "simulation/HemisphereExpansion.h"

#include <algorithm>

#include "crystal/CellGeometry.h"

namespace talven {
namespace {

constexpr std::int32_t kAxisK = 2;
constexpr std::int32_t kLastAxis = 3;
constexpr std::int32_t kMonoclinic = 2;
constexpr std::int32_t kBothSigns = 2;
constexpr std::int32_t kNoAxis = 0;

/// Which entries a pass copies.
enum class Copies { kEveryEntry, kNonzeroIndexOnly };

struct Expansion {
  Ui& ui;
  const UnitCell& cell;
  const ReflectionLimits& limits;
  ReflectionList& list;
  IndexRange& range;
};

void CountAxes(IndexRange& range) {
  for (std::int32_t axis = 1; axis <= kLastAxis; ++axis) {
    if (range.IndexMin[axis] != 0) ++range.AxisCount[axis];
    if (range.IndexMax[axis] != 0) ++range.AxisCount[axis];
    range.AxisCountSum += range.AxisCount[axis];
  }
}

/// The first axis from `from` on that has not both signs; 0 if there is none up to `last`.
std::int32_t OneSidedAxis(const IndexRange& range, std::int32_t from, std::int32_t last) {
  for (std::int32_t axis = from; axis <= last; ++axis)
    if (range.AxisCount[axis] != kBothSigns) return axis;
  return kNoAxis;
}

float CopyTwoTheta(const Expansion& expansion, std::int32_t h, std::int32_t k, std::int32_t l) {
  return TwoThetaOf(std::min(ComputeSinTheta(expansion.cell, expansion.limits.Wavelength, h, k, l), kLargestSinTheta));
}

/// Copies entries with one index negated. False if the list is full; its count is then as before the pass.
bool RunPass(Expansion& expansion, std::int32_t axis, Copies copies) {
  ReflectionList& list = expansion.list;
  // On purpose: the pass works in the stores of lowest h, highest h and lowest k, and a restart of the run counts what
  // it leaves there.
  std::int32_t& h = expansion.range.IndexMin[1];
  std::int32_t& k = expansion.range.IndexMax[1];
  std::int32_t& l = expansion.range.IndexMin[2];
  std::int32_t& flipped = axis == 1 ? h : axis == kAxisK ? k : l;
  const bool copies_any = copies == Copies::kNonzeroIndexOnly || expansion.range.AxisCount[axis] != 0;
  std::int32_t count = list.ReflectionCount;
  for (std::int32_t i = 1; i <= list.ReflectionCount; ++i) {
    h = list.H[i];
    k = list.K[i];
    l = list.L[i];
    if (!copies_any || (copies == Copies::kNonzeroIndexOnly && flipped == 0)) continue;
    if (count == kReflectionLimit) {
      expansion.ui.ShowMessage(kReflectionLimitMessage);
      return false;
    }
    flipped = -flipped;
    const float two_theta = CopyTwoTheta(expansion, h, k, l);
    if (expansion.limits.IsBeyond(two_theta)) continue;
    ++count;
    list.H[count] = h;
    list.K[count] = k;
    list.L[count] = l;
    list.F2[count] = list.F2[i];
    list.TwoTheta[count] = two_theta;
  }
  list.ReflectionCount = count;
  return true;
}

}  // namespace

void ExpandHemisphere(Ui& ui, std::int32_t cell_class, const UnitCell& cell, const ReflectionLimits& limits,
                      ReflectionList& list, IndexRange& range) {
  if (cell_class < 2 || cell_class > 5) return;
  CountAxes(range);
  if (range.AxisCountSum > 4) return;
  const bool monoclinic = cell_class == kMonoclinic;
  const std::int32_t first = monoclinic ? OneSidedAxis(range, kAxisK, kAxisK) : OneSidedAxis(range, 1, kLastAxis);
  if (first == kNoAxis) return;
  Expansion expansion{ui, cell, limits, list, range};
  // The first pass copies entries whose index is 0 as well: those stand twice from then on, and count double.
  if (!RunPass(expansion, first, Copies::kEveryEntry)) return;
  if (monoclinic || range.AxisCountSum == 4) return;
  const std::int32_t second = OneSidedAxis(range, first + 1, kLastAxis);
  if (second != kNoAxis) RunPass(expansion, second, Copies::kNonzeroIndexOnly);
}

}  // namespace talven
