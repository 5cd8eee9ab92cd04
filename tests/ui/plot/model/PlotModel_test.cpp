// Axes, thinning and what a plot says, without a screen.
#include "ui/plot/model/PlotModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "ui/plot/model/Decimation.h"

namespace talven::test {
namespace {

Pattern Made(double first, double step, std::vector<double> counts, std::optional<double> wavelength = 1.5406) {
  Pattern pattern;
  pattern.counts = std::move(counts);
  for (std::size_t i = 0; i < pattern.counts.size(); ++i) {
    pattern.two_theta.push_back(first + step * static_cast<double>(i));
  }
  pattern.wavelength = wavelength;
  return pattern;
}

std::string Join(const std::vector<AxisTick>& ticks) {
  std::string text;
  for (const AxisTick& tick : ticks) text += (text.empty() ? "" : " ") + tick.label;
  return text;
}

TEST(AxisScale, ValuesAlongAreThoseOfTheTables) {
  // Silicon 111 (a = 5.43088 Angstrom) with K alpha 1 of copper, as on the certificate of SRM 640.
  EXPECT_NEAR(AlongValue(AlongUnit::kD, 28.4422, 1.540598), 3.13552, 1e-4);
  EXPECT_NEAR(AlongValue(AlongUnit::kQ, 28.4422, 1.540598), 2.00388, 1e-4);
  for (const AlongUnit unit : {AlongUnit::kTwoTheta, AlongUnit::kD, AlongUnit::kQ}) {
    for (const double angle : {0.5, 28.4, 90.0, 179.0}) {
      EXPECT_NEAR(TwoThetaAt(unit, AlongValue(unit, angle, 0.7), 0.7), angle, 1e-9);
    }
  }
  EXPECT_EQ(TwoThetaAt(AlongUnit::kD, 0.1, 1.54), 180.0);
  EXPECT_EQ(TwoThetaAt(AlongUnit::kD, -1.0, 1.54), 180.0);
  EXPECT_EQ(TwoThetaAt(AlongUnit::kQ, -1.0, 1.54), 0.0);
}

TEST(AxisScale, TicksAreRoundIntensities) {
  using Row = std::tuple<UpScale, double, double, int, const char*>;
  for (const auto& [scale, lower, upper, count, labels] :
       {Row{UpScale::kLinear, 0.0, 1050.0, 5, "0 500 1000"},
        Row{UpScale::kLinear, -30.0, 30.0, 6, "-30 -20 -10 0 10 20 30"},
        Row{UpScale::kSquareRoot, -2.0, 10.0, 5, "0 50 100"},
        Row{UpScale::kLogarithm, 0.0, 2.0, 5, "1 2 5 10 20 50 100"},
        Row{UpScale::kLogarithm, -1.0, 6.0, 4, "0.1 1 10 100 1000 10000 100000 1000000"},
        Row{UpScale::kLinear, 1.0, 1.0, 5, ""}, Row{UpScale::kLinear, 0.0, 0.001, 4, "0 0.0005 0.001"}}) {
    EXPECT_EQ(Join(UpAxis{scale, 1.0}.Ticks(lower, upper, count)), labels);
  }
}

/// Highest and lowest of each column, of all points that fall into it.
std::vector<std::pair<double, double>> Reach(const std::vector<double>& x, const std::vector<double>& y,
                                             const std::vector<double>& edges, const std::vector<std::size_t>& points) {
  std::vector<std::pair<double, double>> reach(edges.size() - 1, {1e9, -1e9});
  for (const std::size_t i : points) {
    const auto edge = std::upper_bound(edges.begin(), edges.end(), x[i]);
    if (edge == edges.begin() || edge == edges.end()) continue;
    auto& [lowest, highest] = reach[static_cast<std::size_t>(edge - edges.begin()) - 1];
    lowest = std::min(lowest, y[i]);
    highest = std::max(highest, y[i]);
  }
  return reach;
}

TEST(Decimation, EachColumnReachesAsFarAsWithAllPoints) {
  std::mt19937 random(7);
  const auto below = [&random](unsigned limit) { return static_cast<int>(random() % limit); };
  for (int round = 0; round < 200; ++round) {
    std::vector<double> x;
    std::vector<double> y;
    double angle = 0.0;
    for (int i = below(3000); i > 0; --i) {
      x.push_back(angle += 0.001 * (1 + below(20)));
      y.push_back(below(1000));
    }
    std::vector<double> edges{0.01 * below(300)};
    const double width = 0.01 * (1 + below(200));
    for (int i = 1 + below(60); i > 0; --i) edges.push_back(edges.back() + width);
    const std::vector<std::size_t> kept = PointsToDraw(x, y, edges);
    std::vector<std::size_t> all(x.size());
    for (std::size_t i = 0; i < all.size(); ++i) all[i] = i;
    EXPECT_EQ(Reach(x, y, edges, kept), Reach(x, y, edges, all));
    EXPECT_LE(kept.size(), 2 * (edges.size() - 1) + 2);
    // The line goes on beyond both ends of the view.
    const bool has_left = !x.empty() && x.front() < edges.front();
    EXPECT_TRUE(!has_left || x[kept.front()] < edges.front());
    const bool has_right = !x.empty() && x.back() >= edges.back();
    EXPECT_TRUE(!has_right || x[kept.back()] >= edges.back());
  }
}

TEST(PlotModel, CurvesRiseAlongEveryAxis) {
  PlotModel model;
  model.Show({"A", Made(10.0, 0.01, std::vector<double>(5000, 3.0))});
  for (const AlongUnit unit : {AlongUnit::kTwoTheta, AlongUnit::kD, AlongUnit::kQ}) {
    model.Set({.along = unit});
    const PlotRange full = model.FullAlong();
    const Curve curve = model.CurveOf(std::size_t{0}, full, 100);
    EXPECT_TRUE(std::ranges::is_sorted(curve.x));
    EXPECT_NEAR(curve.x.front(), full.lower, 1e-12);
    EXPECT_NEAR(curve.x.back(), full.upper, 1e-12);
  }
}

TEST(PlotModel, OverlaysAreScaledAndStacked) {
  PlotModel model;
  model.Show({"A", Made(10.0, 1.0, {0.0, 50.0, 0.0})});
  model.AddOverlay({"B", Made(10.0, 1.0, {1.0, 2.0, 4.0})});
  EXPECT_EQ(model.PlaceOf(4.0, 1), 4.0);
  model.Set({.arrangement = Arrangement::kNormalised});
  EXPECT_EQ(model.PlaceOf(50.0, 0), 100.0);
  EXPECT_EQ(model.PlaceOf(1.0, 1), 25.0);
  model.Set({.arrangement = Arrangement::kStacked});
  EXPECT_EQ(model.PlaceOf(1.0, 1), 60.0);
  EXPECT_EQ(model.FullUp({10.0, 12.0}).upper, 135.0 * 1.05);
  model.RemoveOverlays();
  EXPECT_EQ(model.Series().size(), 1U);
}

TEST(PlotModel, ADifferenceComparesTheSameSpacings) {
  // The same lines at two wavelengths: along d they cancel, along 2theta they do not.
  PlotModel model;
  Pattern first = Made(20.0, 0.5, {});
  Pattern second = first;
  for (int i = 0; i < 60; ++i) {
    const double d = 4.0 - 0.03 * i;
    first.two_theta.push_back(TwoThetaAt(AlongUnit::kD, d, 1.5406));
    second.two_theta.push_back(TwoThetaAt(AlongUnit::kD, d, 0.7093));
    first.counts.push_back(i % 10);
    second.counts.push_back(i % 10);
  }
  second.wavelength = 0.7093;
  model.Show({"Cu", first});
  model.AddOverlay({"Mo", second});
  const auto spread = [&model](AlongUnit unit, UpScale up) {
    model.Set({.along = unit, .up = up, .shows_difference = true});
    if (!model.HasDifference()) return -1.0;
    const Curve curve = model.DifferenceCurve(model.FullAlong(), 1000);
    const auto [lowest, highest] = std::ranges::minmax(curve.y);
    return highest - lowest;
  };
  EXPECT_NEAR(spread(AlongUnit::kD, UpScale::kLinear), 0.0, 1e-6);
  EXPECT_EQ(spread(AlongUnit::kTwoTheta, UpScale::kLinear), -1.0) << "the angles do not overlap";
  EXPECT_EQ(spread(AlongUnit::kD, UpScale::kLogarithm), -1.0) << "no logarithm of negative values";
}

TEST(PlotModel, ZerosStandAtTheFootOfALogarithmicAxis) {
  PlotModel model;
  model.Show({"A", Made(10.0, 1.0, {0.0, 0.02, 5.0, -1.0})});
  model.Set({.up = UpScale::kLogarithm});
  EXPECT_NEAR(model.PlaceOf(0.0), std::log10(0.02), 1e-12);
  EXPECT_EQ(model.PlaceOf(-1.0), model.PlaceOf(0.0));
  model.Show({"flat", Made(10.0, 1.0, {0.0, 0.0})});
  EXPECT_LT(model.FullUp({10.0, 11.0}).lower, model.FullUp({10.0, 11.0}).upper);
}

TEST(PlotModel, EarlierPatternsAreKept) {
  PlotModel model;
  for (int i = 0; i < 25; ++i) model.Show({std::to_string(i), Made(10.0, 1.0, {1.0, 2.0})});
  EXPECT_EQ(model.Series().front().title, "24");
  ASSERT_EQ(model.Earlier().size(), PlotModel::kKeptEarlier);
  EXPECT_EQ(model.Earlier().front().title + " " + model.Earlier().back().title, "23 4");
}

TEST(PlotModel, TheCursorReadsPointAndReflection) {
  PlotModel model;
  EXPECT_FALSE(model.ReadAt(20.0));
  Pattern pattern = Made(10.0, 0.5, {1.0, 2.0, 3.0, 4.0, 5.0});
  pattern.reflections = {{1, 1, 0, 0}, {3, 1, 1, 0}, {3, 1, -1, 0}, {9, 9, 9, 9}};
  model.Show({"A", pattern});
  const auto reading = model.ReadAt(11.2);
  ASSERT_TRUE(reading && reading->reflection);
  EXPECT_EQ(reading->intensity, 3.0);
  EXPECT_EQ(reading->reflection->label, "1 1 0 +1");
  EXPECT_EQ(model.ReadAt(10.9)->reflection->label, "1 0 0");
  EXPECT_NEAR(reading->d, 7.894, 0.001);
  EXPECT_EQ(model.Ticks().size(), 2U) << "a reflection beyond the points has no place";
}

TEST(PlotModel, WordsTellWhatIsShown) {
  PlotModel model;
  EXPECT_EQ(model.Description(), "No pattern is shown.");
  model.Show({"QUARTZ", Made(10.0, 0.5, {1.0, 2.0, 3.0}, {})});
  model.AddOverlay({"B", Made(10.0, 0.5, {1.0, 2.0, 3.0})});
  model.Set({.up = UpScale::kSquareRoot, .shows_difference = true});
  EXPECT_EQ(model.Description(),
            "QUARTZ. Along: 2θ (°), 10 to 11. Up: Intensity (counts), square root scale. 3 points, 0 reflections. "
            "Overlays: B. "
            "The difference to the first overlay stands below. The file tells no wavelength; 1.54056 Å is assumed.");
}

}  // namespace
}  // namespace talven::test
