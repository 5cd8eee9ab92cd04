#include "simulation/PrepareReflections.h"

#include <algorithm>

#include "crystal/CellGeometry.h"
#include "textio/Numbers.h"

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
  const ReciprocalCell& cell;
  const ReflectionLimits& limits;
  ReflectionList& list;
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
bool RunPass(const Expansion& expansion, std::int32_t axis, Copies copies) {
  ReflectionList& list = expansion.list;
  // On purpose: the pass works in the stores of lowest h, highest h and lowest k, and a restart of the run counts what
  // it leaves there.
  std::int32_t& h = list.Range.IndexMin[1];
  std::int32_t& k = list.Range.IndexMax[1];
  std::int32_t& l = list.Range.IndexMin[2];
  std::int32_t& flipped = axis == 1 ? h : axis == kAxisK ? k : l;
  const bool copies_any = copies == Copies::kNonzeroIndexOnly || list.Range.AxisCount[axis] != 0;
  std::int32_t count = list.ReflectionCount;
  for (std::int32_t i = 1; i <= list.ReflectionCount; ++i) {
    h = list.H[i];
    k = list.K[i];
    l = list.L[i];
    if (!copies_any || (copies == Copies::kNonzeroIndexOnly && flipped == 0)) continue;
    if (count == kReflectionLimit) return false;
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

bool HaveEqualIndices(const ReflectionList& list, std::int32_t i, std::int32_t j) {
  return list.H[i] == list.H[j] && list.K[i] == list.K[j] && list.L[i] == list.L[j];
}

/// F squared that the sweeps leave of the entries first to last, all of equal indices. A run of equal entries meets no
/// other, so its sweeps can be made one after the other.
float MergeRun(ReflectionList& list, std::int32_t first, std::int32_t last) {
  std::int32_t count = last - first + 1;
  while (count > 1) {
    const std::int32_t pairs = count / 2;
    for (std::int32_t pair = 0; pair < pairs; ++pair) {
      const double sum = static_cast<double>(list.F2[first + 2 * pair]) + list.F2[first + 2 * pair + 1];
      list.F2[first + pair] = Store(sum * 0.5);
    }
    if (count % 2 == 1) list.F2[first + pairs] = list.F2[first + count - 1];
    count = pairs + count % 2;
  }
  return list.F2[first];
}

}  // namespace

bool ExpandHemisphere(std::int32_t cell_class, const ReciprocalCell& cell, const ReflectionLimits& limits,
                      ReflectionList& list) {
  IndexRange& range = list.Range;
  if (cell_class < 2 || cell_class > 5) return true;
  CountAxes(range);
  if (range.AxisCountSum > 4) return true;
  const bool monoclinic = cell_class == kMonoclinic;
  const std::int32_t first = monoclinic ? OneSidedAxis(range, kAxisK, kAxisK) : OneSidedAxis(range, 1, kLastAxis);
  if (first == kNoAxis) return true;
  const Expansion expansion{cell, limits, list};
  // The first pass copies entries whose index is 0 as well: those stand twice from then on, and count double.
  if (!RunPass(expansion, first, Copies::kEveryEntry)) return false;
  if (monoclinic || range.AxisCountSum == 4) return true;
  const std::int32_t second = OneSidedAxis(range, first + 1, kLastAxis);
  return second == kNoAxis || RunPass(expansion, second, Copies::kNonzeroIndexOnly);
}

void RemoveDuplicates(ReflectionList& list) {
  std::int32_t kept = 0;
  std::int32_t next = 1;
  for (std::int32_t first = 1; first <= list.ReflectionCount; first = next) {
    next = first + 1;
    while (next <= list.ReflectionCount && HaveEqualIndices(list, first, next)) ++next;
    const float f2 = MergeRun(list, first, next - 1);
    ++kept;
    list.H[kept] = list.H[first];
    list.K[kept] = list.K[first];
    list.L[kept] = list.L[first];
    list.F2[kept] = f2;
    list.TwoTheta[kept] = list.TwoTheta[first];
  }
  list.ReflectionCount = kept;
}

}  // namespace talven
