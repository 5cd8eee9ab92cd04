#include "comparison/NormalisePeaks.h"

#include <algorithm>

#include "textio/Numbers.h"

namespace talven {
namespace {

constexpr double kTopIntensity = 99000.0;

}  // namespace

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

}  // namespace talven
