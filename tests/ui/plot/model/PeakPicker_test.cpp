// What the user changes about the picked peaks.
#include "ui/plot/model/PeakPicker.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "ui/plot/MadePattern.h"

namespace talven::test {
namespace {

std::string Listed(const PeakPicker& picker) {
  std::ostringstream text;
  for (const Peak& peak : picker.Listed()) text << std::round(10.0 * peak.two_theta) / 10.0 << ' ';
  return text.str();
}

TEST(PeakPicker, ChoicesHoldWhenWidthAndThresholdChange) {
  PeakPicker picker;
  picker.SetPattern(MadePattern());
  EXPECT_EQ(Listed(picker), "28.4 47.3 56.1 69.1 76.4 ");
  picker.Choose(picker.WithPeakAt(40.0));
  picker.Choose(picker.Without(*picker.NearestMark(56.0, 1.0)));
  EXPECT_EQ(picker.NearestMark(56.0, 1.0), nullptr);
  PeakChoices choices = picker.Choices();
  choices.fwhm = 0.13;
  choices.threshold = 4.5;
  picker.Choose(choices);
  EXPECT_EQ(Listed(picker), "28.4 40 47.3 69.1 76.4 ");
  picker.Choose(picker.WithMoved(*picker.NearestMark(40.0, 1.0), 41.0));
  EXPECT_EQ(Listed(picker), "28.4 41 47.3 69.1 76.4 ");
  picker.SetPattern(MadePattern(2));
  EXPECT_EQ(Listed(picker), "28.4 47.3 56.1 69.1 76.4 ") << "another pattern starts anew";
}

TEST(PeakPicker, APeakIsSetOnTheTopNearby) {
  PeakPicker picker;
  picker.SetPattern(MadePattern());
  picker.Choose(picker.Without(*picker.NearestMark(47.3, 0.2)));
  picker.Choose(picker.WithPeakAt(47.28));
  const MarkedPeak* const mark = picker.NearestMark(47.3, 0.2);
  ASSERT_NE(mark, nullptr);
  EXPECT_EQ(mark->origin, PeakOrigin::kByHand);
  EXPECT_NEAR(mark->peak.two_theta, 47.303, 0.021);
  EXPECT_NEAR(mark->peak.height, 2200.0, 150.0);
}

TEST(PeakPicker, CompanionsAreMarkedAndLeftOut) {
  // Each peak with its companion at half the height, where Bragg's law puts it.
  Pattern pattern = MadePattern();
  constexpr double kDegree = 3.14159265358979 / 180.0;
  for (std::size_t i = 0; i < pattern.PointCount(); ++i) {
    for (const auto& [place, height] : kMadePeaks) {
      const double companion = 2.0 * std::asin(std::sin(place / 2.0 * kDegree) * 1.544426 / 1.540598) / kDegree;
      const double distance = (pattern.two_theta[i] - companion) / 0.1;
      pattern.counts[i] += 0.5 * height * std::exp2(-4.0 * distance * distance);
    }
  }
  PeakPicker picker;
  picker.SetPattern(pattern);
  std::size_t companions = 0;
  for (const MarkedPeak& mark : picker.Marks()) companions += mark.origin == PeakOrigin::kAlpha2 ? 1 : 0;
  EXPECT_GE(companions, 2U);
  // A pair that is not resolved lies a little higher than its stronger line.
  EXPECT_EQ(Listed(picker), "28.5 47.3 56.1 69.1 76.4 ");
  PeakChoices choices = picker.Choices();
  choices.keep_alpha2 = true;
  picker.Choose(choices);
  EXPECT_EQ(picker.Listed().size(), 5 + companions);
}

TEST(PeakPicker, AnEmptyPatternHasNoPeaks) {
  PeakPicker picker;
  picker.SetPattern({});
  picker.Choose(picker.WithPeakAt(40.0));
  EXPECT_TRUE(picker.Marks().empty());
}

}  // namespace
}  // namespace talven::test
