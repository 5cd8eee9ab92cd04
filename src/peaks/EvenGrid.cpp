#include "peaks/EvenGrid.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numeric>

namespace talven {
namespace {

/// Angles and counts beyond these are no measurement.
constexpr double kLargestAngle = 360.0;
constexpr double kLargestCount = 1e30;
/// How far a point may lie from its place on equal steps, as a share of the step.
constexpr double kPlaceTolerance = 0.25;

/// The usable points of a pattern by rising angle. A variance of 0 is one that is not told.
struct Points {
  std::vector<double> two_theta;
  std::vector<double> counts;
  std::vector<double> variance;
};

bool IsUsable(double two_theta, double count) {
  return std::fabs(two_theta) <= kLargestAngle && std::fabs(count) <= kLargestCount;
}

Points UsablePoints(const Pattern& pattern, std::vector<std::string>& notices) {
  Points points;
  const std::size_t size = std::min(pattern.two_theta.size(), pattern.counts.size());
  const bool has_sigma = pattern.sigma.size() >= size;
  points.two_theta.reserve(size);
  points.counts.reserve(size);
  if (has_sigma) points.variance.reserve(size);
  for (std::size_t i = 0; i < size; ++i) {
    if (!IsUsable(pattern.two_theta[i], pattern.counts[i])) continue;
    points.two_theta.push_back(pattern.two_theta[i]);
    points.counts.push_back(pattern.counts[i]);
    if (!has_sigma) continue;
    const double variance = pattern.sigma[i] * pattern.sigma[i];
    points.variance.push_back(variance > 0.0 && variance <= kLargestCount * kLargestCount ? variance : 0.0);
  }
  if (points.counts.size() < size)
    notices.push_back("points without a usable angle and count: " + std::to_string(size - points.counts.size()));
  return points;
}

std::vector<double> Permuted(const std::vector<double>& values, const std::vector<std::size_t>& order) {
  std::vector<double> permuted(values.size());
  for (std::size_t i = 0; i < values.size(); ++i) permuted[i] = values[order[i]];
  return permuted;
}

void SortByAngle(Points& points, std::vector<std::string>& notices) {
  if (std::ranges::is_sorted(points.two_theta)) return;
  std::vector<std::size_t> order(points.two_theta.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order, {}, [&points](std::size_t i) { return points.two_theta[i]; });
  points.two_theta = Permuted(points.two_theta, order);
  points.counts = Permuted(points.counts, order);
  points.variance = Permuted(points.variance, order);
  notices.emplace_back("the angles do not rise throughout; the points were put in order");
}

bool HasEqualSteps(const std::vector<double>& two_theta, double step) {
  for (std::size_t i = 0; i < two_theta.size(); ++i)
    if (std::fabs(two_theta[i] - two_theta[0] - static_cast<double>(i) * step) > kPlaceTolerance * step) return false;
  return true;
}

double MedianStep(const std::vector<double>& two_theta) {
  std::vector<double> steps(two_theta.size() - 1);
  for (std::size_t i = 0; i < steps.size(); ++i) steps[i] = two_theta[i + 1] - two_theta[i];
  const auto middle = steps.begin() + static_cast<std::ptrdiff_t>((steps.size() - 1) / 2);
  std::ranges::nth_element(steps, middle);
  return *middle;
}

bool AreWholeNumbers(const std::vector<double>& counts) {
  return std::ranges::all_of(counts, [](double count) { return std::fabs(count - std::round(count)) < 1e-6; });
}

std::string Degrees(double value) {
  char digits[32];
  return {digits, std::to_chars(digits, digits + sizeof digits, value, std::chars_format::general, 4).ptr};
}

/// Averages blocks of `block` points; what is left at the end is left out.
EvenGrid AverageBlocks(const Points& points, double step, std::size_t block) {
  EvenGrid grid;
  const auto size = static_cast<double>(block);
  grid.first_two_theta = points.two_theta[0] + 0.5 * (size - 1.0) * step;
  grid.step = size * step;
  grid.points_averaged = size;
  const std::size_t count = points.counts.size() / block;
  const auto sum = [block](const std::vector<double>& values, std::size_t i) {
    const auto first = values.begin() + static_cast<std::ptrdiff_t>(i * block);
    return std::accumulate(first, first + static_cast<std::ptrdiff_t>(block), 0.0);
  };
  grid.counts.resize(count);
  for (std::size_t i = 0; i < count; ++i) grid.counts[i] = sum(points.counts, i) / size;
  if (points.variance.empty()) return grid;
  grid.variance.resize(count);
  for (std::size_t i = 0; i < count; ++i) grid.variance[i] = sum(points.variance, i) / (size * size);
  return grid;
}

/// On a straight line between a point and the one before; the last point where there is none.
double Between(const Points& points, const std::vector<double>& values, std::size_t next, double two_theta) {
  if (next == points.two_theta.size()) return values.back();
  const double share = (two_theta - points.two_theta[next - 1]) / (points.two_theta[next] - points.two_theta[next - 1]);
  return values[next - 1] + share * (values[next] - values[next - 1]);
}

/// The mean of the points within half a step of each place, or a straight line between the neighbours where there is
/// none.
EvenGrid Resample(const Points& points, double step) {
  EvenGrid grid;
  grid.first_two_theta = points.two_theta.front();
  grid.step = step;
  const double range = points.two_theta.back() - points.two_theta.front();
  grid.counts.resize(static_cast<std::size_t>(range / step + kPlaceTolerance) + 1);
  grid.variance.resize(points.variance.empty() ? 0 : grid.counts.size());
  grid.points_averaged =
      std::max(1.0, static_cast<double>(points.counts.size()) / static_cast<double>(grid.counts.size()));
  std::size_t next = 0;
  for (std::size_t i = 0; i < grid.counts.size(); ++i) {
    const double place = grid.TwoTheta(i);
    const std::size_t first = next;
    while (next < points.two_theta.size() && points.two_theta[next] < place + 0.5 * step) ++next;
    const auto taken = static_cast<double>(next - first);
    const auto sum = [first, next](const std::vector<double>& values) {
      return std::accumulate(values.begin() + static_cast<std::ptrdiff_t>(first),
                             values.begin() + static_cast<std::ptrdiff_t>(next), 0.0);
    };
    grid.counts[i] = next > first ? sum(points.counts) / taken : Between(points, points.counts, next, place);
    if (!grid.variance.empty())
      grid.variance[i] =
          next > first ? sum(points.variance) / (taken * taken) : Between(points, points.variance, next, place);
  }
  return grid;
}

}  // namespace

EvenGrid MakeEvenGrid(const Pattern& pattern, double finest_step) {
  std::vector<std::string> notices;
  Points points = UsablePoints(pattern, notices);
  SortByAngle(points, notices);
  EvenGrid grid;
  const double range = points.counts.empty() ? 0.0 : points.two_theta.back() - points.two_theta.front();
  if (range > 0.0) {
    const double step = range / static_cast<double>(points.counts.size() - 1);
    if (HasEqualSteps(points.two_theta, step)) {
      const auto block = static_cast<std::size_t>(std::max(1.0, std::ceil(finest_step / step - 1e-6)));
      grid = AverageBlocks(points, step, std::min(block, points.counts.size()));
      if (block > 1) notices.push_back("steps of " + Degrees(step) + " degrees were averaged to " + Degrees(grid.step));
    } else {
      grid = Resample(points, std::max(MedianStep(points.two_theta), finest_step));
      notices.push_back("the steps are not equal; resampled to steps of " + Degrees(grid.step) + " degrees");
    }
  }
  grid.are_whole_numbers = AreWholeNumbers(points.counts);
  grid.notices = std::move(notices);
  return grid;
}

std::vector<double> InterpolateGrid(const EvenGrid& grid, const std::vector<double>& values,
                                    const std::vector<double>& two_theta) {
  std::vector<double> result(two_theta.size());
  const auto last = static_cast<double>(values.size() - 1);
  for (std::size_t i = 0; i < two_theta.size(); ++i) {
    const double place = (two_theta[i] - grid.first_two_theta) / grid.step;
    // An angle that is no number takes the first value.
    const double kept = place > 0.0 ? std::min(place, last) : 0.0;
    const auto low = static_cast<std::size_t>(kept);
    const std::size_t high = std::min(low + 1, values.size() - 1);
    result[i] = values[low] + (kept - static_cast<double>(low)) * (values[high] - values[low]);
  }
  return result;
}

}  // namespace talven
