// The smooth background below the peaks of a measured pattern.
#pragma once

#include <vector>

#include "crystal/Pattern.h"
#include "peaks/EvenGrid.h"

namespace talven {

/// Steps below this are binned to it for the background, degrees: the smoothing parameter grows with the inverse fourth
/// power of the step and would leave the range of a double.
inline constexpr double kFinestBackgroundStep = 0.005;

/// The background at each point of a pattern, in its unit, by asymmetrically reweighted penalised least squares (Baek,
/// Park, Ahn and Choo, Analyst 140 (2015) 250) with lambda = 1e6 (0.02 / step)^4. Unequal steps are resampled inside.
/// One value for each point, points without a usable count included; a pattern of fewer than two points has its own
/// counts.
std::vector<double> EstimateBackground(const Pattern& pattern);

/// The same on equal steps, which are taken as they are.
std::vector<double> EstimateBackground(const EvenGrid& grid);

/// Solves (W + lambda D'D) z = W y, D being the second difference: the curve that minimises
/// sum w (y - z)^2 + lambda sum (z[i-1] - 2 z[i] + z[i+1])^2. Linear in the points.
std::vector<double> SolvePenalised(const std::vector<double>& y, const std::vector<double>& weights, double lambda);

}  // namespace talven
