#include "ui/plot/model/Difference.h"

#include <algorithm>

namespace talven {

Pattern DifferenceOf(const Pattern& first, double first_factor, const Pattern& second, double second_factor,
                     const std::function<double(double)>& second_angle) {
  Pattern difference;
  const std::vector<double>& angles = second.two_theta;
  for (std::size_t i = 0; i < first.PointCount(); ++i) {
    const double angle = second_angle(first.two_theta[i]);
    const auto above = std::ranges::lower_bound(angles, angle);
    if (above == angles.end() || (above == angles.begin() && *above != angle)) continue;
    const auto right = static_cast<std::size_t>(above - angles.begin());
    double value = second.counts[right];
    if (*above != angle) {
      const double share = (angle - angles[right - 1]) / (angles[right] - angles[right - 1]);
      value = second.counts[right - 1] + share * (second.counts[right] - second.counts[right - 1]);
    }
    difference.two_theta.push_back(first.two_theta[i]);
    difference.counts.push_back(first.counts[i] * first_factor - value * second_factor);
  }
  return difference;
}

}  // namespace talven
