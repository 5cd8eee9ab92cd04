#include "ui/plot/model/PeakPicker.h"

#include <algorithm>
#include <cmath>

#include "ui/plot/model/ReflectionTicks.h"

namespace talven {

PeakOptions PeakPicker::Options() const {
  PeakOptions options;
  options.fwhm = choices_.fwhm;
  options.threshold = choices_.threshold;
  options.keep_alpha2 = choices_.keep_alpha2;
  options.wavelength = pattern_.wavelength ? pattern_.wavelength : wavelength_;
  return options;
}

void PeakPicker::SetPattern(const Pattern& pattern, std::optional<double> wavelength) {
  pattern_ = pattern;
  wavelength_ = wavelength;
  choices_.fwhm.reset();
  choices_.added.clear();
  choices_.removed.clear();
  search_ = SearchPeaks(pattern_, Options());
  Pick();
}

void PeakPicker::Choose(const PeakChoices& choices) {
  const bool has_new_width = choices.fwhm != choices_.fwhm;
  choices_ = choices;
  if (has_new_width) search_ = SearchPeaks(pattern_, Options());
  Pick();
}

void PeakPicker::Pick() {
  PeakOptions options = Options();
  const PickedPeaks picked = PickPeaks(search_, options);
  marks_.clear();
  for (const Peak& peak : picked.peaks) {
    if (!IsRemoved(peak)) marks_.push_back({peak, PeakOrigin::kFound});
  }
  for (const Peak& peak : choices_.added) marks_.push_back({peak, PeakOrigin::kByHand});
  left_out_count_ = picked.left_out_count + (marks_.size() > kListedPeaks ? marks_.size() - kListedPeaks : 0);
  if (!choices_.keep_alpha2) {
    options.keep_alpha2 = true;
    for (const Peak& peak : PickPeaks(search_, options).peaks) {
      if (peak.is_alpha2) marks_.push_back({peak, PeakOrigin::kAlpha2});
    }
  }
  std::ranges::stable_sort(marks_, {}, [](const MarkedPeak& mark) { return mark.peak.two_theta; });
}

bool PeakPicker::IsRemoved(const Peak& peak) const {
  // A width that changes moves the found place a little; the decision holds on.
  return std::ranges::any_of(
      choices_.removed, [&](double two_theta) { return std::abs(two_theta - peak.two_theta) < search_.fwhm / 4.0; });
}

std::vector<Peak> PeakPicker::Listed() const {
  std::vector<Peak> peaks;
  for (const MarkedPeak& mark : marks_) {
    if (mark.origin != PeakOrigin::kAlpha2) peaks.push_back(mark.peak);
  }
  KeepStrongest(peaks, kListedPeaks);
  return peaks;
}

Peak PeakPicker::PeakOn(std::size_t point, double two_theta) const {
  const double base = point < search_.background.size() ? search_.background[point] : 0.0;
  return {two_theta, std::max(pattern_.counts[point] - base, 0.0), search_.fwhm, false};
}

PeakChoices PeakPicker::WithPeakAt(double two_theta) const {
  PeakChoices choices = choices_;
  if (pattern_.PointCount() == 0) return choices;
  std::size_t highest = NearestIndex(pattern_.two_theta, two_theta);
  const std::size_t first = NearestIndex(pattern_.two_theta, two_theta - search_.fwhm / 2.0);
  const std::size_t last = NearestIndex(pattern_.two_theta, two_theta + search_.fwhm / 2.0);
  for (std::size_t i = first; i <= last; ++i) {
    if (pattern_.counts[i] > pattern_.counts[highest]) highest = i;
  }
  choices.added.push_back(PeakOn(highest, pattern_.two_theta[highest]));
  return choices;
}

PeakChoices PeakPicker::Without(const MarkedPeak& mark) const {
  PeakChoices choices = choices_;
  if (mark.origin == PeakOrigin::kFound) choices.removed.push_back(mark.peak.two_theta);
  if (mark.origin == PeakOrigin::kByHand) {
    std::erase_if(choices.added, [&](const Peak& peak) { return peak.two_theta == mark.peak.two_theta; });
  }
  return choices;
}

PeakChoices PeakPicker::WithMoved(const MarkedPeak& mark, double two_theta) const {
  PeakChoices choices = Without(mark);
  if (mark.origin == PeakOrigin::kAlpha2 || pattern_.PointCount() == 0) return choices;
  choices.added.push_back(PeakOn(NearestIndex(pattern_.two_theta, two_theta), two_theta));
  return choices;
}

const MarkedPeak* PeakPicker::NearestMark(double two_theta, double within) const {
  const MarkedPeak* nearest = nullptr;
  for (const MarkedPeak& mark : marks_) {
    const double distance = std::abs(mark.peak.two_theta - two_theta);
    if (distance > within) continue;
    nearest = &mark;
    within = distance;
  }
  return nearest;
}

}  // namespace talven
