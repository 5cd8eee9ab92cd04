// A measured pattern on equal steps, as smoothing and background want it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "crystal/Pattern.h"

namespace talven {

/// Counts at first_two_theta + i * step, degrees.
struct EvenGrid {
  double first_two_theta = 0.0;
  double step = 0.0;
  std::vector<double> counts;
  /// Variance of each of the counts, where the pattern tells a standard deviation for all of its points.
  std::vector<double> variance;
  /// Points of the pattern that each of the grid's is the mean of.
  double points_averaged = 1.0;
  /// The pattern has whole numbers only, as counts are.
  bool are_whole_numbers = true;
  /// What had to be done to the pattern, one sentence each.
  std::vector<std::string> notices;

  std::size_t PointCount() const { return counts.size(); }
  double TwoTheta(std::size_t point) const { return first_two_theta + static_cast<double>(point) * step; }
};

/// Puts a pattern on equal steps. Points whose angle or count is no finite number are passed over and points out of
/// order are sorted; unequal steps are resampled to their median, and steps below `finest_step` (degrees) are averaged
/// over the smallest whole number of points that reaches it. Whatever was done is told in the notices. A pattern of
/// fewer than two usable angles gives an empty grid.
EvenGrid MakeEvenGrid(const Pattern& pattern, double finest_step);

/// The values of a grid's points at any angles, by straight lines; beyond the ends the last value.
std::vector<double> InterpolateGrid(const EvenGrid& grid, const std::vector<double>& values,
                                    const std::vector<double>& two_theta);

}  // namespace talven
