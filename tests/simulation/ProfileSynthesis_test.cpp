#include "simulation/ProfileSynthesis.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>

#include "support/TestFiles.h"
#include "textio/FatalIoError.h"

namespace talven {
namespace {

/// A list, a grid and what the synthesis needs, on the heap as in the program.
struct Bench {
  std::unique_ptr<ReflectionList> list = std::make_unique<ReflectionList>();
  std::unique_ptr<PatternGrid> grid = std::make_unique<PatternGrid>();
  std::unique_ptr<SynthesisData> work = std::make_unique<SynthesisData>();
  OutputFile scratch;
  ProfileParameters parameters{.Step = 0.05F, .TwoThetaMin = 4.0F, .SymmetricalPeaks = true};

  explicit Bench(std::int32_t points) { grid->PointCount = points; }
  void Add(float two_theta, float f2) {
    const std::int32_t j = ++list->ReflectionCount;
    list->TwoTheta[j] = two_theta;
    list->F2[j] = f2;
  }
  void Bin() { BinReflections(*list, parameters, scratch, *grid, *work); }
  void Run() {
    Bin();
    BroadenPeaks(parameters, *grid, *work);
    ApplyPowderCorrection(parameters, *grid);
    FinishIntensities(*grid, *work);
  }
};

TEST(BinReflections, BinsAreOpenIntervals) {
  Bench bench(4);
  bench.parameters.Step = 0.5F;
  for (const float angle : {3.9F, 4.0F, 4.1F, 4.4F, 4.5F, 5.9F, 6.0F, 7.0F}) bench.Add(angle, 10.4F);
  bench.Add(5.2F, 0.0F);
  bench.Bin();
  EXPECT_EQ(bench.grid->Profile[1], 21.0F) << "4.1 and 4.4; the sum is rounded, not its parts";
  EXPECT_EQ(bench.grid->BinReflection[1], 4) << "the last in list order";
  EXPECT_EQ(bench.grid->Profile[2], 0.0F) << "4.5 lies between two bins";
  EXPECT_EQ(bench.grid->BinReflection[2], 0);
  EXPECT_EQ(bench.grid->BinReflection[3], 9) << "a reflection without intensity labels its point";
  EXPECT_EQ(bench.grid->Profile[4], 10.0F);
}

TEST(BinReflections, AgreesWithThePlainLoopOnRandomLists) {
  std::mt19937 random(3);
  std::uniform_real_distribution<float> angle(3.0F, 30.0F);
  for (const float step : {0.05F, 0.013F, 0.1F, 0.37F}) {
    Bench bench(static_cast<std::int32_t>(25.0F / step));
    bench.parameters.Step = step;
    for (int j = 0; j < 3000; ++j) bench.Add(angle(random), angle(random));
    for (int i = 0; i < 400; ++i) bench.Add(static_cast<float>(4.0 + i * static_cast<double>(step)), 1.0F);
    bench.Bin();
    double x = bench.parameters.TwoThetaMin;
    for (std::int32_t i = 1; i <= bench.grid->PointCount; ++i) {
      float sum = 0.0F;
      std::int32_t last = 0;
      for (std::int32_t j = 1; j <= bench.list->ReflectionCount; ++j) {
        if (!(bench.list->TwoTheta[j] > x && bench.list->TwoTheta[j] < x + step)) continue;
        sum += bench.list->F2[j];
        last = j;
      }
      ASSERT_EQ(bench.grid->BinReflection[i], last) << i;
      ASSERT_EQ(bench.grid->Profile[i], std::round(sum)) << i;
      ASSERT_EQ(bench.grid->GridAngle[i], std::stof(std::to_string(std::round(100.0 * static_cast<float>(x)) / 100.0)));
      x += step;
    }
  }
}

TEST(BinReflections, ASumThatTenColumnsCannotHoldIsFatal) {
  test::TestDirectory directory;
  Bench bench(2);
  bench.scratch.Open("x.TMP");
  bench.Add(4.06F, 999'999'900.0F);
  EXPECT_NO_THROW(bench.Bin());
  bench.Add(4.06F, 200.0F);
  try {
    bench.Bin();
    FAIL();
  } catch (const FatalIoError& error) {
    EXPECT_STREQ(error.what(), "x.TMP, line 2: expected a bin sum that fits ten columns, found **********");
  }
  bench.scratch.Close();
  EXPECT_EQ(test::ReadFile("x.TMP"), "     4.00           0.\n     4.05   **********\n");
}

TEST(BroadenPeaks, TailsOfOneStick) {
  struct Case {
    float broadening;
    bool symmetrical;
    std::int32_t low_length, high_length;
  };
  for (const Case& c : {Case{1.0F, false, 10, 5},
                        {1.0F, true, 10, 10},
                        {2.0F, false, 20, 10},
                        {2.0F, true, 20, 20},
                        {10.0F, false, 100, 50},
                        {10.0F, true, 100, 100},
                        {0.5F, true, 10, 10},
                        {12.0F, false, 100, 50}}) {
    Bench bench(400);
    bench.parameters.Broadening = c.broadening;
    bench.parameters.SymmetricalPeaks = c.symmetrical;
    bench.Add(4.0F + 199.5F * 0.05F, 1000.0F);
    bench.Bin();
    BroadenPeaks(bench.parameters, *bench.grid, *bench.work);
    const auto& profile = bench.grid->Profile;
    EXPECT_GT(profile[200 - c.low_length], 0.0F) << c.broadening;
    EXPECT_EQ(profile[200 - c.low_length - 1], 0.0F) << c.broadening;
    EXPECT_GT(profile[200 + c.high_length], 0.0F) << c.broadening;
    EXPECT_EQ(profile[200 + c.high_length + 1], 0.0F) << c.broadening;
  }
}

TEST(BroadenPeaks, HeightsOfOneStick) {
  Bench bench(400);
  bench.Add(4.0F + 199.5F * 0.05F, 1000.0F);
  bench.Bin();
  BroadenPeaks(bench.parameters, *bench.grid, *bench.work);
  const float expected[] = {36.63F, 99.57F, 270.67F, 735.76F, 1000.0F, 270.67F, 36.63F, 4.96F, 0.67F};
  for (std::int32_t i = 0; i < 9; ++i) EXPECT_NEAR(bench.grid->Profile[196 + i], expected[i], 0.005F) << i;
  bench.parameters.Broadening = 3.0F;
  bench.Bin();
  BroadenPeaks(bench.parameters, *bench.grid, *bench.work);
  EXPECT_NEAR(bench.grid->Profile[200], 1433.06F, 0.005F) << "the centre is raised to the first tail value";
  EXPECT_NEAR(bench.grid->Profile[199], 1433.06F, 0.005F);
}

/// The tails as a plain loop with an exponential for every point.
void BroadenPlainly(const ProfileParameters& parameters, PatternGrid& grid) {
  const double b = std::min(std::max(parameters.Broadening, 1.0F), 10.0F);
  const double w = parameters.SymmetricalPeaks ? 1.0 : 2.0;
  const double per_degree = 1.0 / static_cast<double>(parameters.Step);
  for (std::int32_t i = 1; i <= grid.PointCount; ++i) {
    if (!(grid.Stick[i] > 0.0F)) continue;
    const auto grow = [&](std::int32_t m, double decay, std::int32_t target) {
      const auto c = static_cast<float>(2.0 * std::exp(-decay * m * (1.0 / b)) * static_cast<double>(grid.Stick[i]));
      if (grid.Profile[i] < c) grid.Profile[i] = c;
      if (target >= 1) grid.Profile[target] += c;
    };
    for (std::int32_t m = 1; m <= static_cast<std::int32_t>(0.5 * b * per_degree) + 1; ++m) grow(m, 1.0, i - m);
    for (std::int32_t m = 1; m <= static_cast<std::int32_t>(per_degree * (0.5 * b) * (1.0 / w)) + 1; ++m)
      grow(m, 2.0, i + m);
  }
}

TEST(BroadenPeaks, AgreesWithThePlainLoopOnRandomSticks) {
  std::mt19937 random(11);
  for (int round = 0; round < 24; ++round) {
    Bench bench(round % 3 == 0 ? 2000 : 150);
    bench.parameters.Step = round % 3 == 0 ? 0.001F : 0.03F;
    bench.parameters.Broadening = 1.0F + 0.4F * static_cast<float>(round);
    bench.parameters.SymmetricalPeaks = round % 2 == 0;
    for (int j = 0; j < 60; ++j)
      bench.Add(4.0F + static_cast<float>(random() % 2000) * 0.00225F, static_cast<float>(random() % 200'000));
    bench.Bin();
    auto plain = std::make_unique<PatternGrid>(*bench.grid);
    BroadenPlainly(bench.parameters, *plain);
    BroadenPeaks(bench.parameters, *bench.grid, *bench.work);
    for (std::int32_t i = 1; i <= plain->PointCount; ++i) ASSERT_EQ(bench.grid->Profile[i], plain->Profile[i]) << i;
  }
}

TEST(PowderCorrection, FactorsAndFloor) {
  const std::pair<float, double> expected[] = {{4.0F, 1642.07}, {10.0F, 263.29}, {20.0F, 66.33},
                                               {30.0F, 29.87},  {40.0F, 17.13},  {60.0F, 8.08}};
  for (const auto& [angle, p] : expected) {
    auto grid = std::make_unique<PatternGrid>();
    grid->PointCount = 2;
    grid->GridAngle[1] = grid->GridAngle[2] = angle;
    grid->Profile[2] = 1000.0F;
    ApplyPowderCorrection({.PowderCorrection = true}, *grid);
    EXPECT_NEAR(grid->Profile[2] / 1000.0, p, 0.005) << angle;
    EXPECT_NEAR(grid->Profile[1], 2.0 * p, 0.01) << "the floor of 2 is corrected too";
    ApplyPowderCorrection({.PowderCorrection = false}, *grid);
    EXPECT_NEAR(grid->Profile[2] / 1000.0, p, 0.005) << angle;
  }
}

TEST(Scaling, TheFirstScaleIsAppliedAgain) {
  Bench bench(400);
  bench.Add(9.01F, 198'000.0F);
  bench.Run();
  EXPECT_EQ(*std::ranges::max_element(bench.grid->Profile.Range(1, 400)), 49'500.0F);
  bench.parameters.PowderCorrection = true;
  bench.Run();
  EXPECT_NEAR(*std::ranges::max_element(bench.grid->Profile.Range(1, 400)), 99'000.0F, 0.01F);
  Bench low(400);
  low.Add(9.01F, 99'000.0F);
  low.Run();
  EXPECT_EQ(*std::ranges::max_element(low.grid->Profile.Range(1, 400)), 99'000.0F);
}

}  // namespace
}  // namespace talven
