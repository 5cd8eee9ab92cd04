#include "simulation/TextbookPattern.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace talven {
namespace {

constexpr double kLorentzianShare = 0.5;
/// Half widths to both sides of a line, in full widths at half maximum.
constexpr double kReach = 100.0;

double LorentzPolarisation(double two_theta) {
  const double theta = two_theta * std::numbers::pi / 360.0;
  const double cosine = std::cos(2.0 * theta);
  return (1.0 + cosine * cosine) / (std::sin(theta) * std::sin(theta) * std::cos(theta));
}

/// Of unit area.
double PseudoVoigt(double distance, double fwhm) {
  const double x = 2.0 * distance / fwhm;
  const double lorentzian = 2.0 / (std::numbers::pi * fwhm) / (1.0 + x * x);
  const double gaussian =
      2.0 * std::sqrt(std::numbers::ln2 / std::numbers::pi) / fwhm * std::exp(-std::numbers::ln2 * x * x);
  return kLorentzianShare * lorentzian + (1.0 - kLorentzianShare) * gaussian;
}

void AddLine(double two_theta, double intensity, double fwhm, double step, Pattern& pattern) {
  const double first_angle = pattern.two_theta.front();
  const auto point_at = [&](double angle) {
    const double last = static_cast<double>(pattern.PointCount());
    return static_cast<std::size_t>(std::clamp(std::ceil((angle - first_angle) / step), 0.0, last));
  };
  const std::size_t end = point_at(two_theta + kReach * fwhm);
  for (std::size_t i = point_at(two_theta - kReach * fwhm); i < end; ++i)
    pattern.counts[i] += intensity * PseudoVoigt(pattern.two_theta[i] - two_theta, fwhm);
}

}  // namespace

void FillTextbookPattern(const ReflectionList& list, const PatternOptions& options, std::int32_t point_count,
                         double fwhm, Pattern& pattern) {
  // A step of 0.05 means that decimal number, not the 32-bit one next to it.
  const auto decimal = [](float value) { return std::round(static_cast<double>(value) * 1e6) / 1e6; };
  const double step = decimal(options.Step);
  const double first = decimal(options.TwoThetaMin);
  pattern.two_theta.clear();
  for (std::int32_t i = 0; i < point_count; ++i) pattern.two_theta.push_back(first + i * step);
  pattern.counts.assign(pattern.two_theta.size(), 0.0);
  pattern.reflections.clear();
  for (std::int32_t i = 1; i <= list.ReflectionCount; ++i) {
    const auto two_theta = static_cast<double>(list.TwoTheta[i]);
    AddLine(two_theta, static_cast<double>(list.F2[i]) * LorentzPolarisation(two_theta), fwhm, step, pattern);
    const double place = std::round((two_theta - first) / step);
    if (place >= 0.0 && place < point_count)
      pattern.reflections.push_back({static_cast<std::size_t>(place), list.H[i], list.K[i], list.L[i]});
  }
  std::ranges::stable_sort(pattern.reflections, {}, &PatternReflection::point);
  const double highest = std::ranges::max(pattern.counts);
  if (highest > 0.0)
    for (double& count : pattern.counts) count *= kTextbookHighest / highest;
}

}  // namespace talven
