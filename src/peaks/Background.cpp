#include "peaks/Background.h"

#include <algorithm>
#include <cmath>

namespace talven {
namespace {

constexpr int kMostRounds = 60;
constexpr double kSettled = 1e-3;
/// Keeps the equations solvable where every point is a peak.
constexpr double kSmallestWeight = 1e-12;
/// Deviations below this share of the counts are rounding, not noise.
constexpr double kRounding = 1e-9;

double SmoothingParameter(double step) {
  const double ratio = 0.02 / step;
  return 1e6 * ratio * ratio * ratio * ratio;
}

/// Mean and standard deviation of the negative differences; the deviation is 0 where there is none.
struct NegativeSide {
  double mean = 0.0;
  double deviation = 0.0;
};

NegativeSide MeasureNegativeSide(const std::vector<double>& y, const std::vector<double>& z) {
  double count = 0.0;
  double sum = 0.0;
  for (std::size_t i = 0; i < y.size(); ++i)
    if (y[i] < z[i]) {
      count += 1.0;
      sum += y[i] - z[i];
    }
  NegativeSide side;
  if (count == 0.0) return side;
  side.mean = sum / count;
  double squares = 0.0;
  for (std::size_t i = 0; i < y.size(); ++i)
    if (y[i] < z[i]) squares += (y[i] - z[i] - side.mean) * (y[i] - z[i] - side.mean);
  side.deviation = std::sqrt(squares / count);
  return side;
}

/// Takes the weights of the next round, and gives their change relative to the old ones.
double Reweight(const std::vector<double>& y, const std::vector<double>& z, const NegativeSide& side,
                std::vector<double>& weights) {
  double change = 0.0;
  double size = 0.0;
  for (std::size_t i = 0; i < y.size(); ++i) {
    const double excess = y[i] - z[i] - (2.0 * side.deviation - side.mean);
    const double weight = std::max(1.0 / (1.0 + std::exp(2.0 * excess / side.deviation)), kSmallestWeight);
    change += (weights[i] - weight) * (weights[i] - weight);
    size += weights[i] * weights[i];
    weights[i] = weight;
  }
  return std::sqrt(change / size);
}

/// Entries of D'D for n points: on the diagonal, and beside it.
double DiagonalOf(std::size_t i, std::size_t n) {
  const double outer = (i + 2 < n ? 1.0 : 0.0) + (i >= 2 ? 1.0 : 0.0);
  const double middle = i >= 1 && i + 1 < n ? 4.0 : 0.0;
  return outer + middle;
}

double SideOf(std::size_t i, std::size_t n) {
  return i + 1 < n ? (i >= 1 ? -2.0 : 0.0) + (i + 2 < n ? -2.0 : 0.0) : 0.0;
}

}  // namespace

std::vector<double> SolvePenalised(const std::vector<double>& y, const std::vector<double>& weights, double lambda) {
  const std::size_t n = y.size();
  if (n < 3) return y;
  // L D L' with two diagonals below that of L: entries of D, and for each column of L those one and two rows below it.
  std::vector<double> pivot(n);
  std::vector<double> first(n, 0.0);
  std::vector<double> second(n, 0.0);
  std::vector<double> z(n);
  for (std::size_t i = 0; i < n; ++i) {
    double diagonal = weights[i] + lambda * DiagonalOf(i, n);
    double side = lambda * SideOf(i, n);
    z[i] = weights[i] * y[i];
    if (i >= 1) {
      diagonal -= first[i - 1] * first[i - 1] * pivot[i - 1];
      side -= first[i - 1] * second[i - 1] * pivot[i - 1];
      z[i] -= first[i - 1] * z[i - 1];
    }
    if (i >= 2) {
      diagonal -= second[i - 2] * second[i - 2] * pivot[i - 2];
      z[i] -= second[i - 2] * z[i - 2];
    }
    pivot[i] = diagonal;
    first[i] = side / diagonal;
    second[i] = i + 2 < n ? lambda / diagonal : 0.0;
  }
  for (std::size_t i = n; i-- > 0;) {
    z[i] /= pivot[i];
    if (i + 1 < n) z[i] -= first[i] * z[i + 1];
    if (i + 2 < n) z[i] -= second[i] * z[i + 2];
  }
  return z;
}

std::vector<double> EstimateBackground(const EvenGrid& grid) {
  const double lambda = SmoothingParameter(grid.step);
  std::vector<double> weights(grid.PointCount(), 1.0);
  std::vector<double> z = grid.counts;
  double largest = 0.0;
  for (const double count : grid.counts) largest = std::max(largest, std::fabs(count));
  for (int round = 0; round < kMostRounds; ++round) {
    z = SolvePenalised(grid.counts, weights, lambda);
    const NegativeSide side = MeasureNegativeSide(grid.counts, z);
    if (!(side.deviation > kRounding * largest) || Reweight(grid.counts, z, side, weights) < kSettled) break;
  }
  return z;
}

std::vector<double> EstimateBackground(const Pattern& pattern) {
  const EvenGrid grid = MakeEvenGrid(pattern, kFinestBackgroundStep);
  if (grid.PointCount() < 2) return pattern.counts;
  return InterpolateGrid(grid, EstimateBackground(grid), pattern.two_theta);
}

}  // namespace talven
