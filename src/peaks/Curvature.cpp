#include "peaks/Curvature.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace talven {
namespace {

constexpr std::size_t kSmallestHalfWindow = 2;
/// Median of the square of a normally distributed value of unit variance.
constexpr double kMedianSquare = 0.4549;
/// Whole numbers that scatter more than this are no counts: a background was taken off, or they were scaled.
constexpr double kMostScatter = 3.0;
/// Sum of the squares of 1, -4, 6, -4, 1.
constexpr double kFourthDifferenceSquares = 70.0;
/// Points on either side that tell the mean count where the scatter is measured.
constexpr std::size_t kScatterHalfWindow = 3;
/// Errors below this share of the highest value are none: a calculated pattern has no scatter at all.
constexpr double kSmallestError = 1e-5;

struct Moments {
  double count = 0.0;
  double squares = 0.0;
  double fourths = 0.0;
};

/// Of the distances from the middle of the window.
Moments WindowMoments(std::size_t half) {
  Moments moments;
  moments.count = 2.0 * static_cast<double>(half) + 1.0;
  for (std::size_t i = 1; i <= half; ++i) {
    const auto k = static_cast<double>(i);
    moments.squares += 2.0 * k * k;
    moments.fourths += 2.0 * k * k * k * k;
  }
  return moments;
}

double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::ranges::nth_element(values, middle);
  return *middle;
}

/// How much larger the scatter of neighbouring points is than these variances: by the median of fourth differences,
/// which peaks hardly change.
double MeasureScatter(const std::vector<double>& y, const std::vector<double>& variances) {
  std::vector<double> squares;
  for (std::size_t i = 2; i + 2 < y.size(); ++i) {
    const double difference = y[i - 2] - 4.0 * y[i - 1] + 6.0 * y[i] - 4.0 * y[i + 1] + y[i + 2];
    squares.push_back(difference * difference / (kFourthDifferenceSquares * variances[i]));
  }
  return squares.empty() ? 1.0 : Median(std::move(squares)) / kMedianSquare;
}

/// The mean over 2 * half + 1 points, fewer at the ends.
std::vector<double> RunningMean(const std::vector<double>& values, std::size_t half) {
  std::vector<double> sums(values.size() + 1, 0.0);
  for (std::size_t i = 0; i < values.size(); ++i) sums[i + 1] = sums[i] + values[i];
  std::vector<double> means(values.size());
  for (std::size_t i = 0; i < values.size(); ++i) {
    const std::size_t first = i > half ? i - half : 0;
    const std::size_t end = std::min(i + half + 1, values.size());
    means[i] = (sums[end] - sums[first]) / static_cast<double>(end - first);
  }
  return means;
}

/// Of each point as a mean of counts.
std::vector<double> CountVariances(const EvenGrid& grid, const std::vector<double>& background, std::size_t half) {
  std::vector<double> variances = RunningMean(grid.counts, half);
  for (std::size_t i = 0; i < variances.size(); ++i)
    variances[i] = std::max({variances[i], background[i], 1.0}) / grid.points_averaged;
  return variances;
}

}  // namespace

std::vector<double> SmoothingWeights(std::size_t half) {
  const Moments m = WindowMoments(half);
  const double determinant = m.count * m.fourths - m.squares * m.squares;
  std::vector<double> weights(half + 1);
  for (std::size_t k = 0; k <= half; ++k)
    weights[k] = (m.fourths - m.squares * static_cast<double>(k * k)) / determinant;
  return weights;
}

std::vector<double> CurvatureWeights(std::size_t half) {
  const Moments m = WindowMoments(half);
  const double determinant = m.count * m.fourths - m.squares * m.squares;
  std::vector<double> weights(half + 1);
  for (std::size_t k = 0; k <= half; ++k)
    weights[k] = 2.0 * (m.squares - m.count * static_cast<double>(k * k)) / determinant;
  return weights;
}

std::size_t HalfWindow(double width, double step) {
  return std::max(static_cast<std::size_t>(std::max(std::round((width / step - 1.0) / 2.0), 0.0)), kSmallestHalfWindow);
}

std::vector<double> Convolve(const std::vector<double>& values, const std::vector<double>& weights) {
  std::vector<double> sums(values.size(), 0.0);
  const std::size_t half = weights.size() - 1;
  for (std::size_t i = half; i + half < values.size(); ++i) {
    double sum = weights[0] * values[i];
    for (std::size_t k = 1; k <= half; ++k) sum += weights[k] * (values[i - k] + values[i + k]);
    sums[i] = sum;
  }
  return sums;
}

NoiseScale MeasureNoise(const EvenGrid& grid, const std::vector<double>& background) {
  NoiseScale noise;
  const double scatter = MeasureScatter(grid.counts, CountVariances(grid, background, kScatterHalfWindow));
  noise.is_scaled = grid.variance.empty() && (!grid.are_whole_numbers || scatter > kMostScatter);
  if (!noise.is_scaled) return noise;
  const auto [lowest, highest] = std::ranges::minmax(grid.counts);
  noise.smallest = kSmallestError * kSmallestError * highest * highest;
  // Values below zero had a background taken off, whose noise is the same everywhere; others were scaled.
  if (grid.are_whole_numbers && lowest < 0.0)
    noise.added = grid.points_averaged * MeasureScatter(grid.counts, std::vector<double>(grid.PointCount(), 1.0));
  else
    noise.factor = scatter;
  return noise;
}

std::vector<double> PointVariances(const EvenGrid& grid, const std::vector<double>& background, double fwhm,
                                   const NoiseScale& noise) {
  std::vector<double> variances = CountVariances(grid, background, static_cast<std::size_t>(0.5 * fwhm / grid.step));
  for (double& variance : variances)
    variance = std::max(noise.factor * variance + noise.added / grid.points_averaged, noise.smallest);
  for (std::size_t i = 0; i < grid.variance.size(); ++i)
    if (grid.variance[i] > 0.0) variances[i] = grid.variance[i];
  return variances;
}

}  // namespace talven
