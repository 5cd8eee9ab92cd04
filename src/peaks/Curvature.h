// The negative second derivative of a pattern, smoothed, and its standard error.
#pragma once

#include <cstddef>
#include <vector>

#include "peaks/EvenGrid.h"

namespace talven {

/// Weights of a least-squares parabola through 2 * half + 1 equal steps (Savitzky and Golay, Anal. Chem. 36 (1964)
/// 1627), from the middle outwards: weights[k] belongs to the points k steps away on either side.
std::vector<double> SmoothingWeights(std::size_t half);
/// The same for its second derivative, in counts for one squared step; the sign is turned, so that a peak has a
/// positive value.
std::vector<double> CurvatureWeights(std::size_t half);

/// The points on either side in a window this wide, an odd number of points and 5 at least.
std::size_t HalfWindow(double width, double step);

/// Sums of weights and values around each point; 0 for those nearer to an end than the weights reach.
std::vector<double> Convolve(const std::vector<double>& values, const std::vector<double>& weights);

/// How the errors of a pattern's values differ from those of counts. It is measured on the pattern's own steps, since
/// averages scatter less than the points that they are of.
struct NoiseScale {
  /// The values are no whole numbers, or scatter far more than counts do: their errors are those of their scatter.
  bool is_scaled = false;
  /// The variance of a point is `factor` times that of a count, plus `added`, and `smallest` at least.
  double factor = 1.0;
  double added = 0.0;
  double smallest = 0.0;
};

/// Of a grid that averages as few of the pattern's points as can be.
NoiseScale MeasureNoise(const EvenGrid& grid, const std::vector<double>& background);

/// The variance of each point of a grid: as the grid tells it, else the mean count over one width of a peak, which is
/// not below the background nor below 1, on the scale of the noise.
std::vector<double> PointVariances(const EvenGrid& grid, const std::vector<double>& background, double fwhm,
                                   const NoiseScale& noise);

}  // namespace talven
