#include "comparison/SortPeaksByIntensity.h"

#include <algorithm>

namespace talven {

namespace {

/// Moves the peak at `from` down in steps of a gap, past all stronger ones; they move up.
void SinkPeak(PeakList& list, std::int32_t from, std::int32_t gap) {
  const float position = list.TwoTheta[from];
  const float intensity = list.Intensity[from];
  std::int32_t j = from;
  for (; j > gap && list.Intensity[j - gap] > intensity; j -= gap) {
    list.TwoTheta[j] = list.TwoTheta[j - gap];
    list.Intensity[j] = list.Intensity[j - gap];
  }
  list.TwoTheta[j] = position;
  list.Intensity[j] = intensity;
}

}  // namespace

void SortPeaksByIntensity(PeakList& list) {
  const std::int32_t n = list.count;
  // Before the other sort, since most files give the peaks by rising angle.
  const auto rising = list.RisingTwoTheta.Range(1, n);
  std::ranges::copy(list.TwoTheta.Range(1, n), rising.begin());
  std::ranges::sort(rising);
  for (std::int32_t gap = n / 2; gap > 0; gap /= 2)
    for (std::int32_t i = gap + 1; i <= n; ++i) SinkPeak(list, i, gap);
  std::ranges::reverse(list.TwoTheta.Range(1, n));
  std::ranges::reverse(list.Intensity.Range(1, n));
}

}  // namespace talven
