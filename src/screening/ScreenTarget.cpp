#include "screening/ScreenTarget.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <stdexcept>

#include "peaks/Background.h"
#include "peaks/EvenGrid.h"
#include "peaks/PickPeaks.h"
#include "screening/ComparisonScores.h"

namespace talven {
namespace {

/// The l of the triangle in stage 1 and 2, degrees.
constexpr double kCoarseReach = 1.0;
constexpr double kFineReach = 0.5;
constexpr double kNarrowest = 0.001;
constexpr double kWidest = 5.0;
constexpr double kLongestWavelength = 100.0;
/// Of the pattern that stands for a list of peaks: what it shows beyond the first and last, and its steps in a width.
constexpr double kMargin = 1.0;
constexpr double kStepsInWidth = 6.0;
constexpr double kLargestAngle = 179.0;
/// Lines that are narrower than the peaks by this factor cost the true structure its place.
constexpr double kMuchWider = 3.0;
/// What a flat pattern may differ from its background, as a share of the counts.
constexpr double kRounding = 1e-9;

std::string TwoDigits(double value) {
  char digits[32];
  return {digits, std::to_chars(digits, digits + sizeof digits, value, std::chars_format::general, 2).ptr};
}

double ChooseWavelength(const ScreenOptions& options, std::optional<double> own) {
  const double wavelength = options.wavelength > 0.0 ? options.wavelength : own.value_or(0.0);
  if (!(wavelength > 0.0 && wavelength < kLongestWavelength))
    throw std::invalid_argument("the wavelength is not known; --wavelength tells it");
  if (!(options.fwhm >= kNarrowest && options.fwhm <= kWidest))
    throw std::invalid_argument("the FWHM must lie between 0.001 and 5 degrees");
  return wavelength;
}

/// Drops points at and below 0 degrees, and those next to straight reflection, where no line is looked for.
EvenGrid ToReach(EvenGrid grid) {
  std::size_t first = 0;
  while (first < grid.PointCount() && !(grid.TwoTheta(first) > 0.0)) ++first;
  std::size_t end = grid.PointCount();
  while (end > first && grid.TwoTheta(end - 1) > kLargestAngle) --end;
  grid.counts.erase(grid.counts.begin() + static_cast<std::ptrdiff_t>(end), grid.counts.end());
  grid.counts.erase(grid.counts.begin(), grid.counts.begin() + static_cast<std::ptrdiff_t>(first));
  grid.first_two_theta = grid.TwoTheta(first);
  return grid;
}

ScreenTarget TargetOf(const EvenGrid& net, double wavelength, const ScreenOptions& options) {
  ScreenTarget target{{wavelength, net.first_two_theta, net.TwoTheta(net.PointCount() - 1)},
                      options.fwhm,
                      options.texture,
                      CorrelationTarget(net, kCoarseReach, options.fwhm),
                      CorrelationTarget(net, kFineReach, options.fwhm),
                      {},
                      net.notices};
  if (!(target.fine.Power() > 0.0)) throw std::invalid_argument("there is nothing above the background");
  return target;
}

}  // namespace

ScreenTarget MakeScreenTarget(const Pattern& pattern, const ScreenOptions& options) {
  const double wavelength = ChooseWavelength(options, pattern.wavelength);
  EvenGrid net = ToReach(MakeEvenGrid(pattern, kFinestBackgroundStep));
  if (net.PointCount() < 2) throw std::invalid_argument("there are fewer than two points between 0 and 179 degrees");
  const std::vector<double> background = EstimateBackground(net);
  const double rounding = kRounding * std::fabs(*std::ranges::max_element(net.counts));
  for (std::size_t i = 0; i < net.PointCount(); ++i) {
    net.counts[i] -= background[i];
    if (std::fabs(net.counts[i]) < rounding) net.counts[i] = 0.0;
  }
  ScreenTarget target = TargetOf(net, wavelength, options);
  PeakOptions peak_options;
  peak_options.wavelength = wavelength;
  const PickedPeaks picked = PickPeaks(pattern, peak_options);
  target.peaks = ListOf(picked.peaks);
  if (!picked.peaks.empty() && picked.fwhm > kMuchWider * options.fwhm)
    target.notices.push_back("the peaks are about " + TwoDigits(picked.fwhm) +
                             " degrees wide at half height, much more than the FWHM of the lines; --fwhm tells it");
  return target;
}

ScreenTarget MakeScreenTarget(const PeakList& peaks, const ScreenOptions& options) {
  const double wavelength = ChooseWavelength(options, std::nullopt);
  EvenGrid net;
  net.step = options.fwhm / kStepsInWidth;
  const auto angles = peaks.TwoTheta.Range(1, peaks.count);
  if (angles.empty()) throw std::invalid_argument("there is no peak in the list");
  const auto [lowest, highest] = std::ranges::minmax(angles);
  if (!(lowest > 0.0F && highest < 180.0F))
    throw std::invalid_argument("the peaks do not all lie between 0 and 180 degrees");
  const double first = std::max(lowest - kMargin, net.step);
  const double last = std::min(highest + kMargin, kLargestAngle);
  net.first_two_theta = first;
  net.counts.resize(static_cast<std::size_t>(std::max(last - first, 0.0) / net.step) + 2);
  for (std::int32_t peak = 1; peak <= peaks.count; ++peak)
    for (std::size_t i = 0; i < net.PointCount(); ++i)
      net.counts[i] += static_cast<double>(peaks.Intensity[peak]) *
                       PseudoVoigt(net.TwoTheta(i) - static_cast<double>(peaks.TwoTheta[peak]), options.fwhm);
  ScreenTarget target = TargetOf(net, wavelength, options);
  target.peaks = peaks;
  return target;
}

}  // namespace talven
