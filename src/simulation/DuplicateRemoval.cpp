#include "simulation/DuplicateRemoval.h"

#include "textio/Numbers.h"

namespace talven {
namespace {

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
