#include "simulation/ProfileSynthesis.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>

namespace talven {
namespace {

TEST(SizeGrid, CutsWhatTheStoredStepGives) {
  using Row = std::tuple<float, float, float, std::int32_t, std::int32_t>;
  for (const auto& [highest, step, low, top, points] :
       {Row{39.99F, 0.05F, 4.0F, 40, 719}, Row{40.0F, 0.05F, 4.0F, 41, 739}, Row{0.0F, 0.05F, 0.5F, 1, 9},
        Row{3.0F, 0.05F, 4.0F, 4, 0}, Row{100.0F, 0.001F, 4.0F, 101, 96999}}) {
    const GridExtent extent = SizeGrid(highest, {.Step = step, .TwoThetaMin = low});
    EXPECT_EQ(std::pair(extent.TopAngle, extent.PointCount), std::pair(top, points)) << highest;
  }
}

/// A list and what the synthesis works on, on the heap as in the program.
struct Bench {
  std::unique_ptr<ReflectionList> list = std::make_unique<ReflectionList>();
  std::unique_ptr<SynthesisData> work = std::make_unique<SynthesisData>();
  Pattern pattern;
  PatternOptions options{.PowderCorrection = false};

  explicit Bench(std::int32_t points) { work->PointCount = points; }
  void Add(float two_theta, float f2) {
    list->TwoTheta[++list->ReflectionCount] = two_theta;
    list->F2[list->ReflectionCount] = f2;
    list->H[list->ReflectionCount] = list->ReflectionCount;
  }
  std::optional<WideBinSum> Bin() { return BinReflections(*list, options, *work); }
  /// The highest point of a whole synthesis.
  double Highest() {
    Bin();
    BroadenPeaks(options, *work);
    ApplyPowderCorrection(options, *work);
    FinishIntensities(*work);
    FillPoints(*list, *work, pattern);
    return std::ranges::max(pattern.counts);
  }
};

TEST(BinReflections, AgreesWithThePlainLoopOnRandomLists) {
  std::mt19937 random(3);
  std::uniform_real_distribution<float> angle(3.0F, 30.0F);
  for (const float step : {0.05F, 0.013F, 0.1F, 0.37F}) {
    Bench bench(static_cast<std::int32_t>(25.0F / step));
    bench.options.Step = step;
    for (int j = 0; j < 3000; ++j) bench.Add(angle(random), angle(random));
    for (int i = 0; i < 400; ++i) bench.Add(static_cast<float>(4.0 + i * static_cast<double>(step)), 0.0F);
    bench.Bin();
    FillPoints(*bench.list, *bench.work, bench.pattern);
    auto reflection = bench.pattern.reflections.begin();
    double x = 4.0;
    for (std::int32_t i = 1; i <= bench.work->PointCount; ++i, x += step) {
      float sum = 0.0F;
      for (std::int32_t j = 1; j <= bench.list->ReflectionCount; ++j) {
        if (!(bench.list->TwoTheta[j] > x && bench.list->TwoTheta[j] < x + step)) continue;
        sum += bench.list->F2[j];
        ASSERT_EQ(std::pair(reflection->point + 1, reflection->h), std::pair(static_cast<std::size_t>(i), j));
        ++reflection;
      }
      ASSERT_EQ(bench.work->Profile[i], std::round(sum)) << i;
      ASSERT_EQ(bench.work->GridAngle[i], std::stof(std::to_string(std::round(100.0 * static_cast<float>(x)) / 100.0)));
    }
    EXPECT_EQ(reflection, bench.pattern.reflections.end());
  }
}

TEST(BinReflections, ASumThatTenColumnsCannotHoldIsGivenBack) {
  Bench bench(2);
  bench.Add(4.06F, 999'999'900.0F);
  EXPECT_FALSE(bench.Bin());
  bench.Add(4.06F, 200.0F);
  const auto wide = bench.Bin();
  ASSERT_TRUE(wide);
  EXPECT_EQ(std::tuple(wide->point, wide->rows.size(), wide->rows[0].angle, wide->rows[0].sum, wide->rows[1].sum),
            std::tuple(2, 2U, 4.0F, 0.0F, 1'000'000'064.0F));
}

TEST(BroadenPeaks, TailsAndHeightsOfOneStick) {
  using Row = std::tuple<float, bool, std::int32_t, std::int32_t, std::vector<float>>;
  // Heights from the fourth point below the stick; the stick itself is raised to the first low-angle value.
  for (const auto& [broadening, symmetrical, low_length, high_length, heights] :
       {Row{1.0F, false, 10, 5, {36.63F, 99.57F, 270.67F, 735.76F, 1000.0F, 270.67F, 36.63F, 4.96F, 0.67F}},
        Row{2.0F, false, 20, 10, {270.67F, 446.26F, 735.76F, 1213.06F, 1213.06F}}, Row{2.0F, true, 20, 20, {270.67F}},
        Row{0.5F, true, 10, 10, {36.63F}}, Row{12.0F, false, 100, 50, {1340.64F, 1481.64F, 1637.46F, 1809.67F}}}) {
    Bench bench(400);
    bench.options.Broadening = broadening;
    bench.options.SymmetricalPeaks = symmetrical;
    bench.Add(4.0F + 199.5F * 0.05F, 1000.0F);  // in the middle of the bin of point 200
    bench.Bin();
    BroadenPeaks(bench.options, *bench.work);
    const auto& profile = bench.work->Profile;
    EXPECT_TRUE(profile[200 - low_length] > 0.0F && profile[199 - low_length] == 0.0F) << broadening;
    EXPECT_TRUE(profile[200 + high_length] > 0.0F && profile[201 + high_length] == 0.0F) << broadening;
    std::int32_t i = 196;
    for (const float height : heights) EXPECT_NEAR(profile[i++], height, 0.005F) << broadening;
  }
}

/// The tails as a plain loop with an exponential for every point.
void BroadenPlainly(const PatternOptions& options, SynthesisData& work) {
  const double b = std::min(std::max(options.Broadening, 1.0F), 10.0F);
  const double w = options.SymmetricalPeaks ? 1.0 : 2.0;
  const double per_degree = 1.0 / static_cast<double>(options.Step);
  for (std::int32_t i = 1; i <= work.PointCount; ++i) {
    if (!(work.Stick[i] > 0.0F)) continue;
    const auto grow = [&](std::int32_t m, double decay, std::int32_t target) {
      const auto c = static_cast<float>(2.0 * std::exp(-decay * m * (1.0 / b)) * static_cast<double>(work.Stick[i]));
      if (work.Profile[i] < c) work.Profile[i] = c;
      if (target >= 1) work.Profile[target] += c;
    };
    for (std::int32_t m = 1; m <= static_cast<std::int32_t>(0.5 * b * per_degree) + 1; ++m) grow(m, 1.0, i - m);
    for (std::int32_t m = 1; m <= static_cast<std::int32_t>(per_degree * (0.5 * b) * (1.0 / w)) + 1; ++m)
      grow(m, 2.0, i + m);
  }
}

TEST(BroadenPeaks, AgreesWithThePlainLoopOnRandomSticks) {
  std::mt19937 random(11);
  for (int round = 0; round < 24; ++round) {
    Bench bench(2000);
    bench.options = {.Step = 0.001F, .Broadening = 1.0F + 0.4F * static_cast<float>(round)};
    bench.options.SymmetricalPeaks = round % 2 == 0;
    for (int j = 0; j < 60; ++j)
      bench.Add(4.0F + static_cast<float>(random() % 2000) * 0.00225F, static_cast<float>(random() % 200'000));
    bench.Bin();
    auto plain = std::make_unique<SynthesisData>(*bench.work);
    BroadenPlainly(bench.options, *plain);
    BroadenPeaks(bench.options, *bench.work);
    EXPECT_TRUE(std::ranges::equal(bench.work->Profile.Range(1, 2000), plain->Profile.Range(1, 2000))) << round;
  }
}

TEST(PowderCorrection, FactorsAndFloor) {
  for (const auto& [angle, p] : {std::pair(4.0F, 1642.07), {10.0F, 263.29}, {30.0F, 29.87}, {60.0F, 8.08}}) {
    const Bench bench(2);
    bench.work->GridAngle[1] = bench.work->GridAngle[2] = angle;
    bench.work->Profile[2] = 1000.0F;
    for (const bool applied : {true, false}) ApplyPowderCorrection({.PowderCorrection = applied}, *bench.work);
    EXPECT_NEAR(bench.work->Profile[2] / 1000.0, p, 0.005) << angle;
    EXPECT_NEAR(bench.work->Profile[1], 2.0 * p, 0.01) << "the floor of 2 is corrected too";
  }
}

TEST(Scaling, TheFirstScaleIsAppliedAgain) {
  Bench bench(400);
  bench.Add(9.01F, 198'000.0F);
  EXPECT_EQ(bench.Highest(), 49'500.0);
  bench.options.PowderCorrection = true;
  EXPECT_NEAR(bench.Highest(), 99'000.0, 0.01);
  bench.options.PowderCorrection = false;
  bench.list->F2[1] = 99'000.0F;
  EXPECT_EQ(bench.Highest(), 99'000.0) << "the scale of the run before is gone";
}

}  // namespace
}  // namespace talven
