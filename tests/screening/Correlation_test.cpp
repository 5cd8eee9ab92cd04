#include "screening/Correlation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "screening/NelderMead.h"

namespace talven {
namespace {

constexpr double kReach = 0.5;
constexpr double kFwhm = 0.12;

/// A pattern of lines with the profile g on a grid.
EvenGrid PatternOf(const std::vector<double>& two_theta, const std::vector<double>& intensities, double step = 0.02) {
  EvenGrid grid;
  grid.first_two_theta = 10.0;
  grid.step = step;
  grid.counts.resize(static_cast<std::size_t>(20.0 / step) + 1);
  for (std::size_t i = 0; i < grid.PointCount(); ++i)
    for (std::size_t line = 0; line < two_theta.size(); ++line)
      grid.counts[i] += intensities[line] * PseudoVoigt(grid.TwoTheta(i) - two_theta[line], kFwhm);
  return grid;
}

TEST(Correlation, ProfileHasUnitAreaAndItsWidth) {
  double area = 0.0;
  for (double x = -400.0; x < 400.0; x += 0.01) area += 0.01 * PseudoVoigt(x, kFwhm);
  EXPECT_NEAR(area, 1.0, 2e-4);
  EXPECT_NEAR(PseudoVoigt(0.5 * kFwhm, kFwhm), 0.5 * PseudoVoigt(0.0, kFwhm), 1e-12);
}

TEST(Correlation, KernelsAreThoseOfThePlainIntegral) {
  const CorrelationKernels kernels = MakeKernels(kReach, kFwhm);
  const double step = 0.002;
  const double reach = kProfileReach * kFwhm;
  double area = 0.0;
  for (double u = -reach; u < reach; u += step) area += step * PseudoVoigt(u, kFwhm);
  for (const double r : {0.0, 0.05, 0.3, 0.5, 0.9}) {
    double once = 0.0;
    for (double u = -reach; u < reach; u += step)
      once += step * std::max(0.0, 1.0 - std::fabs(r - u) / kReach) * PseudoVoigt(u, kFwhm) / area;
    EXPECT_NEAR(kernels.weight_and_profile.At(r), once, 1e-3) << r;
    double twice = 0.0;
    for (double u = -reach; u < reach; u += step)
      twice += step * kernels.weight_and_profile.At(r - u) * PseudoVoigt(u, kFwhm) / area;
    EXPECT_NEAR(kernels.weight_and_two_profiles.At(r), twice, 1e-3) << r;
  }
}

TEST(Correlation, ScoreOfTwoSticksWorkedByHand) {
  // Two lines 5 degrees apart do not see each other: W(0) and W(5) = 0. Against a pattern of the first alone a list of
  // both, equally strong, scores W0 / sqrt(W0 * 2 W0) = 0.7071; with itself 1.
  const CorrelationTarget one(PatternOf({20.0}, {300.0}), kReach, kFwhm);
  const std::vector<double> both = {20.0, 25.0};
  EXPECT_NEAR(one.Score(both, std::vector<double>{1.0, 1.0}), 0.7071, 2e-3);
  EXPECT_NEAR(one.Score(std::vector<double>{20.0}, std::vector<double>{5.0}), 1.0, 2e-3);
  EXPECT_NEAR(one.Score(std::vector<double>{28.0}, std::vector<double>{5.0}), 0.0, 0.02);
  const CorrelationTarget two(PatternOf(both, {300.0, 900.0}), kReach, kFwhm);
  EXPECT_NEAR(two.Score(both, std::vector<double>{1.0, 3.0}), 1.0, 2e-3);
  // (1 + 3) / sqrt((1 + 9) (1 + 1)).
  EXPECT_NEAR(two.Score(both, std::vector<double>{1.0, 1.0}), 0.8944, 2e-3);
  EXPECT_EQ(two.Score({}, {}), 0.0);
  EXPECT_EQ(two.Score(both, std::vector<double>{0.0, 0.0}), 0.0);
}

TEST(Correlation, LinePowerIsThatOfThePlainDoubleSum) {
  std::mt19937 random(2);
  std::uniform_real_distribution<double> uniform;
  const SymmetricTable overlap = MakeKernels(kReach, kFwhm).weight_and_two_profiles;
  for (const std::size_t n : {1U, 2U, 50U, 3000U}) {
    std::vector<double> two_theta(n), intensities(n);
    for (double& value : two_theta) value = 10.0 + 20.0 * uniform(random);
    for (double& value : intensities) value = uniform(random);
    std::ranges::sort(two_theta);
    double sum = 0.0;
    for (std::size_t i = 0; i < n; ++i)
      for (std::size_t j = 0; j < n; ++j)
        sum += intensities[i] * intensities[j] * overlap.At(two_theta[i] - two_theta[j]);
    EXPECT_NEAR(LinePower(two_theta, intensities, overlap) / sum, 1.0, 1e-12);
    EXPECT_NEAR(GriddedLines(two_theta, intensities, 10.0, 30.0, overlap).Power() / sum, 1.0, 2e-3);
  }
}

TEST(Correlation, ScoreIsThatOfThePlainSumsOverAllPoints) {
  std::mt19937 random(9);
  std::uniform_real_distribution<double> uniform;
  EvenGrid net;
  net.first_two_theta = 10.0;
  net.step = 0.05;
  for (int i = 0; i < 200; ++i) net.counts.push_back(uniform(random) - 0.3);
  const std::vector<double> two_theta = {10.5, 12.02, 12.4, 19.0};
  const std::vector<double> intensities = {3.0, 1.0, 2.0, 5.0};
  const CorrelationKernels kernels = MakeKernels(kReach, kFwhm);
  double c11 = 0.0;
  double c12 = 0.0;
  double c22 = 0.0;
  for (std::size_t i = 0; i < net.PointCount(); ++i) {
    for (std::size_t j = 0; j < net.PointCount(); ++j)
      c11 += net.counts[i] * net.counts[j] * std::max(0.0, 1.0 - std::fabs(net.TwoTheta(i) - net.TwoTheta(j)) / kReach);
    for (std::size_t line = 0; line < 4; ++line)
      c12 += intensities[line] * net.counts[i] * kernels.weight_and_profile.At(net.TwoTheta(i) - two_theta[line]);
  }
  for (std::size_t i = 0; i < 4; ++i)
    for (std::size_t j = 0; j < 4; ++j)
      c22 += intensities[i] * intensities[j] * kernels.weight_and_two_profiles.At(two_theta[i] - two_theta[j]);
  EXPECT_NEAR(CorrelationTarget(net, kReach, kFwhm).Score(two_theta, intensities), c12 / std::sqrt(c11 * c22), 2e-3);
}

TEST(NelderMead, FindsTheTopOfAHill) {
  const auto hill = [](const std::vector<double>& p) {
    return -std::pow(p[0] - 1.0, 2) - 10.0 * std::pow(p[1] + 2, 2);
  };
  const SimplexResult best = MaximiseBySimplex(hill, {0.0, 0.0}, {0.1, -0.1}, 400, 1e-12);
  EXPECT_NEAR(best.parameters[0], 1.0, 1e-4);
  EXPECT_NEAR(best.parameters[1], -2.0, 1e-4);
  EXPECT_LT(best.evaluations, 200);
  EXPECT_LE(MaximiseBySimplex(hill, {0.0, 0.0}, {0.1, -0.1}, 20, 0.0).evaluations, 23);
}

}  // namespace
}  // namespace talven
