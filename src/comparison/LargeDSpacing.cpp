#include "comparison/LargeDSpacing.h"

#include <cmath>

#include "textio/Numbers.h"

namespace talven {
namespace {

constexpr double kDegreesPerRadian = 57.29578F;

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

}  // namespace talven
