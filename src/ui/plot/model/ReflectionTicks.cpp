#include "ui/plot/model/ReflectionTicks.h"

#include <algorithm>
#include <cmath>

namespace talven {

std::vector<ReflectionTick> GatherReflections(const Pattern& pattern) {
  std::vector<ReflectionTick> ticks;
  const auto& all = pattern.reflections;
  for (std::size_t i = 0; i < all.size();) {
    std::size_t end = i + 1;
    while (end < all.size() && all[end].point == all[i].point) ++end;
    if (all[i].point < pattern.two_theta.size()) {
      std::string label = std::to_string(all[i].h) + " " + std::to_string(all[i].k) + " " + std::to_string(all[i].l);
      if (end - i > 1) label += " +" + std::to_string(end - i - 1);
      ticks.push_back({pattern.two_theta[all[i].point], std::move(label)});
    }
    i = end;
  }
  return ticks;
}

std::size_t NearestIndex(const std::vector<double>& rising, double value) {
  const auto above = std::ranges::lower_bound(rising, value);
  if (above == rising.begin()) return 0;
  if (above == rising.end()) return rising.size() - 1;
  const auto index = static_cast<std::size_t>(above - rising.begin());
  return *above - value < value - rising[index - 1] ? index : index - 1;
}

const ReflectionTick& NearestTick(const std::vector<ReflectionTick>& ticks, double two_theta) {
  return *std::ranges::min_element(ticks, {},
                                   [&](const ReflectionTick& tick) { return std::abs(tick.two_theta - two_theta); });
}

}  // namespace talven
