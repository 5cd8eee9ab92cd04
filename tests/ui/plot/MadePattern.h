// A measured pattern as the tests of the plot want it: known peaks on a sloping background, with a little noise.
#pragma once

#include <array>
#include <cmath>
#include <random>

#include "crystal/Pattern.h"

namespace talven::test {

/// Degrees and counts; the angles of the lines of silicon with copper radiation, as far as they lie in the range.
inline constexpr std::array<std::pair<double, double>, 5> kMadePeaks = {
    {{28.442, 4000.0}, {47.303, 2200.0}, {56.122, 1200.0}, {69.130, 300.0}, {76.376, 500.0}}};

inline Pattern MadePattern(unsigned seed = 1, double share = 1.0) {
  Pattern pattern;
  std::mt19937 random(seed);
  for (int i = 0; i <= 3500; ++i) {
    const double angle = 20.0 + 0.02 * i;
    double counts = 80.0 + (90.0 - angle) * 0.5;
    for (const auto& [place, height] : kMadePeaks) {
      const double distance = (angle - place) / 0.1;
      counts += share * height * std::exp2(-4.0 * distance * distance);
    }
    const double noise = static_cast<double>(random() % 2001) / 1000.0 - 1.0;
    pattern.two_theta.push_back(angle);
    pattern.counts.push_back(std::round(counts + 1.5 * noise * std::sqrt(counts)));
  }
  pattern.wavelength = 1.540598;
  return pattern;
}

/// With h k l, as a simulation gives them.
inline Pattern MadePatternWithReflections() {
  Pattern pattern = MadePattern();
  constexpr std::array<std::array<int, 3>, 5> kIndices = {{{1, 1, 1}, {2, 2, 0}, {3, 1, 1}, {4, 0, 0}, {3, 3, 1}}};
  for (std::size_t i = 0; i < kMadePeaks.size(); ++i) {
    const auto point = static_cast<std::size_t>(std::lround((kMadePeaks[i].first - 20.0) / 0.02));
    pattern.reflections.push_back({point, kIndices[i][0], kIndices[i][1], kIndices[i][2]});
  }
  return pattern;
}

}  // namespace talven::test
