#include "screening/ComparisonScores.h"

#include <algorithm>
#include <string>

#include "comparison/ComparePeakLists.h"
#include "comparison/ComparisonSettings.h"
#include "textio/FieldInput.h"
#include "textio/Record.h"

namespace talven {
namespace {

constexpr double kLowestShare = 0.01;
/// Height of the strongest peak of a textbook pattern.
constexpr double kTop = 99'000.0;
/// Steps of the textbook pattern in one width.
constexpr double kStepsInWidth = 32.0;

/// What a reader gets of a value written with so many decimals.
float AsWritten(double value, int decimals) {
  Record record;
  record.F(value, 24, decimals);
  const std::string_view text = record.Text();
  return ReadReal<float>(text.substr(std::min(text.find_first_not_of(' '), text.size()))).value_or(0.0F);
}

SymmetricTable ProfileTable(double fwhm) {
  SymmetricTable table{fwhm / kStepsInWidth, {}};
  for (double distance = 0.0; distance < kProfileReach * fwhm; distance += table.step)
    table.values.push_back(PseudoVoigt(distance, fwhm));
  return table;
}

}  // namespace

PeakList ListOf(const std::vector<Peak>& peaks) {
  PeakList list;
  for (const Peak& peak : peaks) {
    if (list.count == kPeakCapacity) break;
    ++list.count;
    list.TwoTheta[list.count] = AsWritten(peak.two_theta, 3);
    list.Intensity[list.count] = AsWritten(peak.height, 1);
  }
  return list;
}

std::vector<Peak> TextbookPeaks(const ScreenTarget& target, const LineList& lines) {
  const GriddedLines gridded(lines.two_theta, lines.intensities, target.range.first, target.range.last,
                             ProfileTable(target.fwhm));
  const std::vector<double>& counts = gridded.Spread();
  const double highest = *std::ranges::max_element(counts);
  std::vector<Peak> peaks;
  for (std::size_t i = 1; i + 1 < counts.size(); ++i) {
    if (!(counts[i] > counts[i - 1] && counts[i] >= counts[i + 1] && counts[i] > kLowestShare * highest)) continue;
    const double bend = counts[i - 1] - 2.0 * counts[i] + counts[i + 1];
    const double place = static_cast<double>(i) + 0.5 * (counts[i - 1] - counts[i + 1]) / bend;
    Peak peak;
    peak.two_theta = target.range.first + place * gridded.Step();
    peak.height = kTop * counts[i] / highest;
    peak.fwhm = target.fwhm;
    peaks.push_back(peak);
  }
  KeepStrongest(peaks, kListedPeaks);
  return peaks;
}

ComparisonScores CompareWithTarget(const ScreenTarget& target, const LineList& lines) {
  const PeakList sample = ListOf(TextbookPeaks(target, lines));
  const auto wavelength = static_cast<float>(target.range.wavelength);
  const std::optional<PairScore> score = ComparePeakLists(target.peaks, wavelength, sample, ComparisonSettings());
  if (!score) return {};
  return {score->RMATCH, score->M2, score->BMATCH};
}

}  // namespace talven
