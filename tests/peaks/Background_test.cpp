#include "peaks/Background.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace talven {
namespace {

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

Pattern PatternOf(std::vector<double> two_theta, std::vector<double> counts) {
  Pattern pattern;
  pattern.two_theta = std::move(two_theta);
  pattern.counts = std::move(counts);
  return pattern;
}

TEST(Background, SolvesTheEquationsOfThePlainLoop) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> uniform(0.01, 1.0);
  for (const std::size_t n : {3U, 4U, 5U, 30U}) {
    std::vector<double> y(n), w(n);
    for (double& value : y) value = 100.0 * uniform(random);
    for (double& value : w) value = uniform(random);
    const double lambda = 50.0;
    const std::vector<double> z = SolvePenalised(y, w, lambda);
    // The gradient of sum w (y - z)^2 + lambda sum (second difference)^2 vanishes.
    std::vector<double> gradient(n);
    for (std::size_t i = 0; i < n; ++i) gradient[i] = w[i] * (z[i] - y[i]);
    for (std::size_t i = 1; i + 1 < n; ++i) {
      const double difference = z[i - 1] - 2.0 * z[i] + z[i + 1];
      gradient[i - 1] += lambda * difference;
      gradient[i] -= 2.0 * lambda * difference;
      gradient[i + 1] += lambda * difference;
    }
    for (const double value : gradient) EXPECT_NEAR(value, 0.0, 1e-8) << n;
  }
}

TEST(Background, FollowsAKnownCurveBelowPeaks) {
  for (const double step : {0.05, 0.02, 0.002}) {
    Pattern pattern;
    std::mt19937 random(3);
    std::normal_distribution<double> noise;
    const auto base = [](double x) { return 200.0 + 300.0 * std::exp(-x / 20.0) + 0.02 * x * x; };
    for (double x = 5.0; x < 60.0; x += step) {
      double y = base(x);
      for (double peak = 12.0; peak < 60.0; peak += 4.0) y += 3000.0 * std::exp(-std::pow((x - peak) / 0.1, 2));
      pattern.two_theta.push_back(x);
      pattern.counts.push_back(y + std::sqrt(base(x)) * noise(random));
    }
    const std::vector<double> background = EstimateBackground(pattern);
    ASSERT_EQ(background.size(), pattern.counts.size());
    for (std::size_t i = 0; i < background.size(); ++i)
      EXPECT_NEAR(background[i], base(pattern.two_theta[i]), 0.06 * base(pattern.two_theta[i])) << step;
  }
}

TEST(Background, HasAValueForEachPointOfAnyPattern) {
  const std::vector<std::vector<double>> angles = {{}, {10}, {10, 11}, {12, 11, 10}, {5, 5, 5}, {10, kNoNumber, 12}};
  for (const std::vector<double>& two_theta : angles) {
    const std::vector<double> background =
        EstimateBackground(PatternOf(two_theta, std::vector<double>(two_theta.size(), 7.0)));
    ASSERT_EQ(background.size(), two_theta.size());
    for (const double value : background) EXPECT_NEAR(value, 7.0, 1e-9);
  }
}

TEST(EvenGrid, TellsWhatItHadToDo) {
  const struct {
    std::vector<double> two_theta, counts;
    double finest;
    std::vector<double> grid;
    double first, step;
    std::string notice;
  } cases[] = {
      {{10, 10.1, 10.2}, {1, 2, 3}, 0.01, {1, 2, 3}, 10.0, 0.1, ""},
      {{10.2, 10.1, 10}, {3, 2, 1}, 0.01, {1, 2, 3}, 10.0, 0.1, "the points were put in order"},
      {{10, 10.1, 10.2, 10.3}, {1, 3, 5, 7}, 0.2, {2, 6}, 10.05, 0.2, "averaged to 0.2"},
      {{10, 10.1, 10.2, 10.5}, {1, 2, 3, 6}, 0.01, {1, 2, 3, 4, 5, 6}, 10.0, 0.1, "not equal"},
      {{10, 10.1, kNoNumber, 10.3}, {1, 2, 8, 4}, 0.01, {1, 2, 3, 4}, 10.0, 0.1, "count: 1"},
      {{10, 10.1, 10.2, 10.3}, {1, 2, kNoNumber, 4}, 0.01, {1, 2, 3, 4}, 10.0, 0.1, "not equal"},
      {{10, 10.1, 10.2}, {1, -2, 3}, 0.01, {1, -2, 3}, 10.0, 0.1, ""},
      {{10, 1e300}, {1, 2}, 0.01, {}, 0.0, 0.0, "count: 1"},
  };
  for (const auto& c : cases) {
    const EvenGrid grid = MakeEvenGrid(PatternOf(c.two_theta, c.counts), c.finest);
    ASSERT_EQ(grid.PointCount(), c.grid.size()) << c.notice;
    for (std::size_t i = 0; i < c.grid.size(); ++i) EXPECT_NEAR(grid.counts[i], c.grid[i], 1e-9) << c.notice;
    EXPECT_NEAR(grid.first_two_theta, c.first, 1e-9);
    EXPECT_NEAR(grid.step, c.step, 1e-9);
    std::string notices;
    for (const std::string& notice : grid.notices) notices += notice;
    EXPECT_EQ(notices.empty(), c.notice.empty()) << notices;
    EXPECT_NE(notices.find(c.notice), std::string::npos) << notices;
  }
}

}  // namespace
}  // namespace talven
