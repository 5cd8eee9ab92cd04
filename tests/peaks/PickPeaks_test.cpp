#include "peaks/PickPeaks.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "comparison/PeakListFile.h"
#include "peaks/Alpha2.h"
#include "peaks/Curvature.h"
#include "peaks/PeakListFile.h"

namespace talven {
namespace {

constexpr double kWidth = 0.12;

/// Counts of peaks (position, height) on a flat background of 100, with their statistics.
Pattern Measured(const std::vector<std::pair<double, double>>& peaks, double first, double last) {
  Pattern pattern;
  std::mt19937 random(11);
  for (int i = 0; first + 0.02 * i < last; ++i) {
    const double x = first + 0.02 * i;
    double mean = 100.0;
    for (const auto& [position, height] : peaks)
      mean += height * std::exp(-4.0 * std::log(2.0) * std::pow((x - position) / kWidth, 2));
    pattern.two_theta.push_back(x);
    pattern.counts.push_back(std::poisson_distribution<int>(mean)(random));
  }
  return pattern;
}

TEST(Curvature, WeightsAreThoseOfTheParabolaThroughFivePoints) {
  // The tables of Savitzky and Golay, 1964: (-3 12 17 12 -3)/35 and (2 -1 -2 -1 2)/7.
  const std::vector<double> smoothing = SmoothingWeights(2);
  const std::vector<double> curvature = CurvatureWeights(2);
  const double expected[][2] = {{17.0 / 35, 2.0 / 7}, {12.0 / 35, 1.0 / 7}, {-3.0 / 35, -2.0 / 7}};
  for (std::size_t k = 0; k < 3; ++k) {
    EXPECT_NEAR(smoothing[k], expected[k][0], 1e-14);
    EXPECT_NEAR(curvature[k], expected[k][1], 1e-14);
  }
}

TEST(Curvature, ErrorIsThatOfManyMeasurements) {
  // The variance of the second derivative of noise, from 20,000 draws, is sum c_k^2 v_k.
  std::mt19937 random(5);
  std::normal_distribution<double> noise(0.0, 3.0);
  std::vector<double> values(20'000);
  for (double& value : values) value = noise(random);
  std::vector<double> weights = CurvatureWeights(6);
  double squares = 0.0;
  for (const double value : Convolve(values, weights)) squares += value * value;
  for (double& weight : weights) weight *= weight;
  const double told = Convolve(std::vector<double>(values.size(), 9.0), weights)[100];
  EXPECT_NEAR(squares / static_cast<double>(values.size()) / told, 1.0, 0.05);
}

TEST(PickPeaks, FindsPeaksWhereTheyAreAndNothingElse) {
  const Pattern pattern = Measured({{20, 2000}, {20.5, 300}, {25, 150}, {31.234, 8000}, {40, 90}}, 15, 45);
  for (const bool is_width_given : {true, false}) {
    PeakOptions options;
    if (is_width_given) options.fwhm = kWidth;
    const PickedPeaks picked = PickPeaks(pattern, options);
    ASSERT_EQ(picked.peaks.size(), 5U);
    EXPECT_NEAR(picked.fwhm, kWidth, 0.02);
    EXPECT_NEAR(picked.peaks[3].two_theta, 31.234, 0.003);
    EXPECT_NEAR(picked.peaks[3].height, 8000, 500);
    EXPECT_NEAR(picked.peaks[3].fwhm, kWidth, 0.03);
  }
  // Values of another scale, or with the background taken off, have other errors than counts.
  for (const auto& [scale, offset] : {std::pair(0.001, 0.0), {250.0, 0.0}, {1.0, -100.0}}) {
    Pattern changed = pattern;
    for (double& count : changed.counts) count = scale * count + offset;
    EXPECT_EQ(PickPeaks(changed, {.fwhm = kWidth}).peaks.size(), 5U) << scale;
  }
  const PeakSearch search = SearchPeaks(pattern, {.fwhm = kWidth});
  EXPECT_EQ(PickPeaks(search, {.threshold = 1e9}).peaks.size(), 0U);
  EXPECT_GT(PickPeaks(search, {.threshold = 0.1}).peaks.size(), 50U);
}

TEST(PickPeaks, MeasuresWidthAndHeightWhateverTheNoiseIs) {
  // Two Gauss peaks, their values as they come, or rounded, on a background that is smooth or a saw-tooth: its scatter
  // vanishes in averages over a tooth.
  for (const double step : {0.005, 0.02})
    for (const int tooth : {1, 7})
      for (const bool is_rounded : {false, true}) {
        Pattern pattern;
        for (int i = 0; i * step <= 20.0; ++i) {
          const double x = 20.0 + i * step;
          double y = 100.0 + 3.0 * (i % tooth);
          for (const double place : {25.0, 33.0}) y += 5000.0 * std::exp2(-400.0 * (x - place) * (x - place));
          pattern.two_theta.push_back(x);
          pattern.counts.push_back(is_rounded ? std::round(y) : y);
        }
        const PickedPeaks picked = PickPeaks(pattern, {});
        ASSERT_EQ(picked.peaks.size(), 2U) << step << ' ' << tooth << ' ' << is_rounded;
        EXPECT_NEAR(picked.fwhm, 0.1, 0.01) << step << ' ' << tooth << ' ' << is_rounded;
        EXPECT_NEAR(picked.peaks[0].two_theta, 25.0, 0.001);
        EXPECT_NEAR(picked.peaks[0].height, 5000.0, 200.0) << step << ' ' << tooth << ' ' << is_rounded;
        EXPECT_EQ(picked.notices.empty(), is_rounded);
      }
}

TEST(PickPeaks, KeepsTheStrongestHundred) {
  std::vector<std::pair<double, double>> peaks;
  for (int i = 0; i < 120; ++i) peaks.emplace_back(10.0 + 0.6 * i, i % 6 == 0 ? 300.0 : 5000.0);
  const PickedPeaks picked = PickPeaks(Measured(peaks, 5, 85), {.fwhm = kWidth});
  EXPECT_EQ(picked.peaks.size(), 100U);
  EXPECT_EQ(picked.left_out_count, 20U);
  ASSERT_EQ(picked.notices.size(), 1U);
  EXPECT_EQ(picked.notices[0], "more than 100 peaks; the weakest were left out: 20");
  for (const Peak& peak : picked.peaks) EXPECT_GT(peak.height, 1000);
}

TEST(PickPeaks, TagsTheCompanionsOfKAlpha2) {
  // Copper's second line lies 0.285 degrees above a peak at 90 degrees: 2 asin(1.544427/1.540593 sin 45).
  const Pattern pattern = Measured({{60, 900}, {90, 4000}, {90.2858, 2000}}, 50, 100);
  const struct {
    std::optional<double> wavelength;
    bool keeps;
    std::size_t peaks, alpha2;
  } cases[] = {{1.54056, false, 2, 1}, {1.54056, true, 3, 1}, {1.6, false, 3, 0}, {std::nullopt, false, 3, 0}};
  for (const auto& c : cases) {
    const PickedPeaks picked = PickPeaks(pattern, {.fwhm = kWidth, .keep_alpha2 = c.keeps, .wavelength = c.wavelength});
    EXPECT_EQ(picked.peaks.size(), c.peaks);
    EXPECT_EQ(picked.alpha2_count, c.alpha2);
  }
  // A wavelength of the user's own leaves the file's doublet out, and takes that of its element.
  Pattern told = pattern;
  told.wavelength = 1.54056;
  told.wavelength_alpha2 = 1.54439;
  EXPECT_EQ(SearchPeaks(told, {.fwhm = kWidth}).alpha2_wavelength_ratio, 1.54439 / 1.54056);
  EXPECT_EQ(SearchPeaks(told, {.fwhm = kWidth, .wavelength = 1.4}).alpha2_wavelength_ratio, 0.0);
  EXPECT_EQ(Alpha2Ratio(1.5402, std::nullopt), 0.0) << "a neutron's";
  EXPECT_EQ(Alpha2Ratio(1.6, 1.608), 1.608 / 1.6);
  EXPECT_NEAR(Alpha2Ratio(0.7093, std::nullopt), 1.00605, 1e-5);
}

TEST(PickPeaks, TakesPoorPatternsAsTheyAre) {
  Pattern pattern;
  for (const int size : {0, 1, 2, 10, 400}) {
    pattern.two_theta.clear();
    for (int i = 0; i < size; ++i) pattern.two_theta.push_back(10.0 + 0.05 * i);
    pattern.counts.assign(pattern.two_theta.size(), 0.0);
    EXPECT_TRUE(PickPeaks(pattern, {}).peaks.empty()) << size;
  }
  pattern.counts[200] = 1000.0;
  EXPECT_EQ(PickPeaks(pattern, {}).peaks.size(), 1U);
  for (double& count : pattern.counts) count -= 500.0;
  EXPECT_LE(PickPeaks(pattern, {}).peaks.size(), 1U);
}

TEST(PeakListFile, IsReadByTheComparison) {
  const std::string kHead = " Peaks: 2theta in degrees, height above the background\n";
  const std::vector<Peak> peaks = {{12.3456, 1000.04, 0.1, false}, {150.0, 3e11, 0.1, false}};
  OutputText output;
  WritePeakList(peaks, 1.54056, output);
  EXPECT_EQ(output.Text(),
            kHead + "   Radiation Wavelength   1.54056\n   Marked Peaks\n   12.346        1.0\n  150.000300000000.0\n");
  OutputText fitting;
  WritePeakList({{12.3456, 1000.04, 0.1, false}, {150.0, 99000.0, 0.1, false}}, 0.7, fitting);
  TextInput input("A.LST", fitting.Text());
  EXPECT_EQ(ReadWavelength(input), 0.7F);
  PeakList list;
  ReadPeakList(input, list);
  ASSERT_EQ(list.count, 2);
  EXPECT_EQ(list.TwoTheta[1], 12.346F);
  EXPECT_EQ(list.Intensity[1], 1000.0F);
  EXPECT_EQ(list.TwoTheta[2], 150.0F);
  OutputText without;
  WritePeakList({}, std::nullopt, without);
  EXPECT_EQ(without.Text(), kHead + "   Marked Peaks\n");
}

}  // namespace
}  // namespace talven
