#include "peaks/PickPeaks.h"

#include <algorithm>
#include <cmath>

#include "peaks/Alpha2.h"
#include "peaks/Background.h"
#include "peaks/Curvature.h"
#include "peaks/EvenGrid.h"

namespace talven {
namespace {

/// Window of the second derivative in widths of a peak.
constexpr double kWindow = 2.0;
/// How near two peaks may be, in widths.
constexpr double kClosest = 0.5;
/// Points finer than this share of a width add nothing but time.
constexpr double kPointsPerWidth = 16.0;
/// The widths that are tried where none is given, in degrees, and the width of a pattern without a peak.
constexpr double kNarrowestWidth = 0.01;
constexpr double kWidestWidth = 2.0;
constexpr double kWidthRatio = 1.5;
/// Points that a window spans at least.
constexpr double kSmallestWindow = 4.0;
constexpr double kWidthOfNothing = 0.1;
/// How many of the strongest peaks tell the width, and how far apart others have to be from them, in widths.
constexpr std::size_t kWidthPeaks = 10;
constexpr double kIsolation = 3.0;
/// A peak that tells the width is above the error by this at least.
constexpr double kWidthThreshold = 10.0;

/// A pattern as one width of a peak sees it.
struct Scan {
  EvenGrid grid;
  std::vector<double> smoothed;  // above the background
  std::vector<PeakCandidate> candidates;
};

/// What is known of a pattern before the width of its peaks is.
struct Background {
  EvenGrid grid;
  std::vector<double> values;
  NoiseScale noise;
};

/// The distance in points from a top to where the curve falls below half of it, or to where it rises again before.
double FallOff(const std::vector<double>& curve, std::size_t top, bool is_right) {
  const double level = 0.5 * curve[top];
  std::size_t i = top;
  while (is_right ? i + 1 < curve.size() : i > 0) {
    const std::size_t next = is_right ? i + 1 : i - 1;
    const auto distance = static_cast<double>(is_right ? i - top : top - i);
    if (curve[next] < level) return distance + (curve[i] - level) / (curve[i] - curve[next]);
    if (curve[next] > curve[i]) return distance;
    i = next;
  }
  return static_cast<double>(is_right ? i - top : top - i);
}

/// Twice the distance to the nearer half-height: a neighbour or a companion stands on one side more often than on both.
double WidthAt(const std::vector<double>& curve, std::size_t top, double step) {
  while (top + 1 < curve.size() && curve[top + 1] > curve[top]) ++top;
  while (top > 0 && curve[top - 1] > curve[top]) --top;
  return 2.0 * step * std::min(FallOff(curve, top, false), FallOff(curve, top, true));
}

/// Position between points, of a maximum at point i.
double TopOfParabola(const std::vector<double>& curve, std::size_t i) {
  const double bend = curve[i - 1] - 2.0 * curve[i] + curve[i + 1];
  return bend < 0.0 ? 0.5 * (curve[i - 1] - curve[i + 1]) / bend : 0.0;
}

std::vector<double> Angles(const EvenGrid& grid) {
  std::vector<double> angles(grid.PointCount());
  for (std::size_t i = 0; i < angles.size(); ++i) angles[i] = grid.TwoTheta(i);
  return angles;
}

void FindCandidates(const std::vector<double>& curvature, const std::vector<double>& squared_error, Scan& scan) {
  for (std::size_t i = 1; i + 1 < curvature.size(); ++i) {
    const bool is_top = curvature[i] > 0.0 && curvature[i] >= curvature[i - 1] && curvature[i] > curvature[i + 1];
    if (!is_top || !(scan.smoothed[i] > 0.0) || !(squared_error[i] > 0.0)) continue;
    const double place = static_cast<double>(i) + TopOfParabola(curvature, i);
    Peak peak;
    peak.two_theta = scan.grid.first_two_theta + place * scan.grid.step;
    peak.height = scan.smoothed[i];
    peak.fwhm = WidthAt(scan.smoothed, i, scan.grid.step);
    scan.candidates.push_back({peak, curvature[i] / std::sqrt(squared_error[i])});
  }
}

/// Of maxima nearer to each other than half a width the most significant is left: a window that wide does not part
/// peaks, only its noise has two tops there.
void DropSplitTops(double fwhm, std::vector<PeakCandidate>& candidates) {
  std::vector<PeakCandidate> kept;
  for (const PeakCandidate& candidate : candidates) {
    if (kept.empty() || candidate.peak.two_theta - kept.back().peak.two_theta >= kClosest * fwhm)
      kept.push_back(candidate);
    else if (candidate.significance > kept.back().significance)
      kept.back() = candidate;
  }
  candidates = std::move(kept);
}

Scan ScanPattern(const Pattern& pattern, const Background& background, double fwhm) {
  Scan scan;
  scan.grid = MakeEvenGrid(pattern, fwhm / kPointsPerWidth);
  const EvenGrid& grid = scan.grid;
  const std::vector<double> base = InterpolateGrid(background.grid, background.values, Angles(grid));
  const std::vector<double> variances = PointVariances(grid, base, fwhm, background.noise);
  std::vector<double> weights = CurvatureWeights(HalfWindow(kWindow * fwhm, grid.step));
  const std::vector<double> curvature = Convolve(grid.counts, weights);
  for (double& weight : weights) weight *= weight;
  const std::vector<double> squared_error = Convolve(variances, weights);
  scan.smoothed = Convolve(grid.counts, SmoothingWeights(HalfWindow(fwhm, grid.step)));
  for (std::size_t i = 0; i < base.size(); ++i) scan.smoothed[i] -= base[i];
  FindCandidates(curvature, squared_error, scan);
  DropSplitTops(fwhm, scan.candidates);
  return scan;
}

/// The most significant ones first, 10 at most.
std::vector<PeakCandidate> MostSignificant(std::vector<PeakCandidate> candidates) {
  std::ranges::stable_sort(candidates, std::ranges::greater(), &PeakCandidate::significance);
  if (candidates.size() > kWidthPeaks) candidates.resize(kWidthPeaks);
  return candidates;
}

/// The narrowest width whose window makes the peaks stand out half as much as any other does: wider ones go on gaining
/// from neighbours that they take in.
double GuessWidth(const Pattern& pattern, const Background& background) {
  std::vector<std::pair<double, double>> tried;
  double most = 0.0;
  for (double width = kNarrowestWidth; width < kWidestWidth; width *= kWidthRatio) {
    const Scan scan = ScanPattern(pattern, background, width);
    if (kWindow * width < kSmallestWindow * scan.grid.step) continue;
    double sum = 0.0;
    for (const PeakCandidate& candidate : MostSignificant(scan.candidates)) sum += candidate.significance;
    tried.emplace_back(width, sum);
    most = std::max(most, sum);
  }
  for (const auto& [width, sum] : tried)
    if (sum > 0.5 * most) return width;
  return kWidthOfNothing;
}

bool IsIsolated(const PeakCandidate& peak, const std::vector<PeakCandidate>& all, double fwhm) {
  return std::ranges::none_of(all, [&peak, fwhm](const PeakCandidate& other) {
    const double distance = std::fabs(other.peak.two_theta - peak.peak.two_theta);
    return distance > 0.0 && distance < kIsolation * fwhm && other.peak.height > 0.1 * peak.peak.height &&
           other.significance > kWidthThreshold;
  });
}

/// The median width of the strongest isolated peaks; the guess where there is none.
double MeasureWidth(const Pattern& pattern, const Background& background) {
  const double guess = GuessWidth(pattern, background);
  // A narrow window, for smoothing widens what it smooths.
  const Scan scan = ScanPattern(pattern, background, 0.5 * guess);
  std::vector<PeakCandidate> isolated;
  for (const PeakCandidate& candidate : scan.candidates)
    if (candidate.significance > kWidthThreshold && IsIsolated(candidate, scan.candidates, guess))
      isolated.push_back(candidate);
  std::vector<double> widths;
  for (const PeakCandidate& candidate : MostSignificant(isolated)) widths.push_back(candidate.peak.fwhm);
  if (widths.empty()) return guess;
  std::ranges::sort(widths);
  return std::clamp(widths[widths.size() / 2], 0.5 * guess, 3.0 * guess);
}

}  // namespace

PeakSearch SearchPeaks(const Pattern& pattern, const PeakOptions& options) {
  PeakSearch search;
  search.wavelength = options.wavelength ? options.wavelength : pattern.wavelength;
  const bool is_own = search.wavelength == pattern.wavelength;
  search.alpha2_wavelength_ratio = Alpha2Ratio(search.wavelength, is_own ? pattern.wavelength_alpha2 : std::nullopt);
  Background background{MakeEvenGrid(pattern, kFinestBackgroundStep), {}, {}};
  search.notices = background.grid.notices;
  search.fwhm = options.fwhm.value_or(kWidthOfNothing);
  search.background = pattern.counts;
  if (background.grid.PointCount() < 2) {
    search.notices.emplace_back("too few points for a peak");
    return search;
  }
  background.values = EstimateBackground(background.grid);
  background.noise = MeasureNoise(background.grid, background.values);
  search.background = InterpolateGrid(background.grid, background.values, pattern.two_theta);
  if (!options.fwhm) search.fwhm = MeasureWidth(pattern, background);
  Scan scan = ScanPattern(pattern, background, search.fwhm);
  search.candidates = std::move(scan.candidates);
  if (background.noise.is_scaled)
    search.notices.emplace_back("the values are not plain counts; their error was taken from their scatter");
  return search;
}

void KeepStrongest(std::vector<Peak>& peaks, std::size_t count) {
  if (peaks.size() <= count) return;
  std::ranges::stable_sort(peaks, std::ranges::greater(), &Peak::height);
  peaks.resize(count);
  std::ranges::stable_sort(peaks, {}, &Peak::two_theta);
}

PickedPeaks PickPeaks(const PeakSearch& search, const PeakOptions& options) {
  PickedPeaks picked;
  picked.background = search.background;
  picked.fwhm = search.fwhm;
  picked.wavelength = search.wavelength;
  picked.notices = search.notices;
  for (const PeakCandidate& candidate : search.candidates)
    if (candidate.significance > options.threshold) picked.peaks.push_back(candidate.peak);
  TagAlpha2(search.alpha2_wavelength_ratio, picked.peaks);
  picked.alpha2_count = static_cast<std::size_t>(std::ranges::count(picked.peaks, true, &Peak::is_alpha2));
  if (!options.keep_alpha2) std::erase_if(picked.peaks, [](const Peak& peak) { return peak.is_alpha2; });
  if (picked.peaks.size() > kListedPeaks) {
    picked.left_out_count = picked.peaks.size() - kListedPeaks;
    picked.notices.push_back("more than 100 peaks; the weakest were left out: " +
                             std::to_string(picked.left_out_count));
    KeepStrongest(picked.peaks, kListedPeaks);
  }
  return picked;
}

PickedPeaks PickPeaks(const Pattern& pattern, const PeakOptions& options) {
  return PickPeaks(SearchPeaks(pattern, options), options);
}

}  // namespace talven
