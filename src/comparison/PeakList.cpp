#include "comparison/PeakList.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "textio/Numbers.h"

namespace talven {
namespace {

constexpr double kDegreesPerRadian = 57.29578F;
constexpr double kTopIntensity = 99000.0;

using PeakPlaces = Array1<std::int32_t, kPeakCapacity>;

/// Finds the place of each peak, which is the number of stronger ones. False if two are equally strong. There is no
/// branch for a processor to foresee wrongly, as there is in every sort.
bool FindPlaces(const PeakList& list, PeakPlaces& stronger) {
  const auto intensities = list.Intensity.Range(1, list.count);
  const auto places = stronger.Range(1, list.count);
  for (const float intensity : intensities)
    for (std::size_t j = 0; j < places.size(); ++j) places[j] += intensity > intensities[j] ? 1 : 0;
  return std::accumulate(places.begin(), places.end(), 0) == list.count * (list.count - 1) / 2;
}

void PutInPlace(PeakList& list, const PeakPlaces& stronger) {
  const PeakList unsorted = list;
  for (std::int32_t i = 1; i <= list.count; ++i) {
    list.TwoTheta[stronger[i] + 1] = unsorted.TwoTheta[i];
    list.Intensity[stronger[i] + 1] = unsorted.Intensity[i];
  }
}

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

/// The sort that settles the order of peaks of equal intensity.
void SortWithTies(PeakList& list) {
  const std::int32_t n = list.count;
  for (std::int32_t gap = n / 2; gap > 0; gap /= 2)
    for (std::int32_t i = gap + 1; i <= n; ++i) SinkPeak(list, i, gap);
  std::ranges::reverse(list.TwoTheta.Range(1, n));
  std::ranges::reverse(list.Intensity.Range(1, n));
}

}  // namespace

float FindTwoThetaLimit(float wavelength, float DSPACE) {
  const double s = 1.0 / (2.0 * DSPACE) * wavelength;
  const double theta = std::atan(s / std::sqrt((1.0 - s) * (1.0 + s)));
  return Store(2.0 * kDegreesPerRadian * theta);
}

std::int32_t CountPeaksBelow(const PeakList& list, float limit) {
  std::int32_t low_count = 0;
  for (std::int32_t i = 1; i <= list.count; ++i)
    if (list.TwoTheta[i] < limit) ++low_count;
  return low_count;
}

float NormalisePeaks(PeakList& list) {
  float highest = 0.0F;
  for (std::int32_t i = 1; i <= list.count; ++i) highest = std::max(highest, list.Intensity[i]);
  const double scale = Store(kTopIntensity / highest);
  double area = 0.0;
  for (std::int32_t i = 1; i <= list.count; ++i) {
    const double scaled = list.Intensity[i] * scale;
    area += kAreaPerCount * scaled;
    list.Intensity[i] = Store(scaled);
  }
  return Store(area);
}

void SortPeaksByIntensity(PeakList& list) {
  // Before the other sort, since most files give the peaks by rising angle.
  const auto rising = list.RisingTwoTheta.Range(1, list.count);
  std::ranges::copy(list.TwoTheta.Range(1, list.count), rising.begin());
  std::ranges::sort(rising);

  PeakPlaces stronger;
  if (FindPlaces(list, stronger)) {
    PutInPlace(list, stronger);
  } else {
    SortWithTies(list);
  }
}

}  // namespace talven
