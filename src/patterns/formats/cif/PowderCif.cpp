#include "patterns/formats/cif/PowderCif.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "patterns/formats/CifText.h"
#include "patterns/formats/FinishPattern.h"
#include "patterns/formats/FormatText.h"
#include "patterns/formats/RemarkedWavelength.h"
#include "patterns/formats/cif/CifLookup.h"
#include "textio/FatalIoError.h"
#include "textio/FieldInput.h"

namespace talven {
namespace {

using Document = std::vector<RawCifBlock>;

constexpr std::array<std::string_view, 6> kMeasured = {"_pd_meas_counts_total",  "_pd_meas_intensity_total",
                                                       "_pd_meas_intensity_net", "_pd_proc_intensity_total",
                                                       "_pd_proc_intensity_net", "_pd_proc_intensity_incident"};
constexpr std::array<std::string_view, 2> kCalculated = {"_pd_calc_intensity_total", "_pd_calc_intensity_net"};
constexpr std::array<std::string_view, 4> kAngles = {"_pd_meas_2theta_scan", "_pd_meas_angle_2theta",
                                                     "_pd_proc_2theta_corrected", "_pd_meas_2theta_corrected"};
constexpr std::array<std::string_view, 2> kRanges = {"_pd_meas_2theta_range_", "_pd_proc_2theta_range_"};
/// Writers disagree on whether the last angle of a range is one of a point.
constexpr double kMiscount = 2.0;
/// Texts above this size are read only if their values fit into memory: a value takes that many bytes there.
constexpr std::size_t kSmallText = 16'000'000;
constexpr std::size_t kValueSize = 96;
constexpr std::size_t kLargestGrowth = 8;

Document Parse(const std::string& name, std::string_view text) {
  if (text.size() > kSmallText && CountWords(text) * kValueSize > kLargestGrowth * text.size())
    FailInFile(name, "a CIF of fewer values", std::to_string(CountWords(text)));
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  std::string with_block;
  if (!BeginsWithDataBlock(text)) {
    with_block.append("data_pattern ").append(text);
    text = with_block;
  }
  return ParseCif(name, text);
}

bool HoldsNumber(const CifColumn& column) {
  for (std::size_t row = 0; row < column.Size(); ++row)
    if (ReadCifNumber(column.At(row))) return true;
  return false;
}

template <std::size_t N>
std::optional<CifColumn> FindAny(const RawCifBlock& block, const std::array<std::string_view, N>& names,
                                 std::string_view* which = nullptr) {
  for (const std::string_view name : names) {
    const auto column = FindCifColumn(block, name);
    if (!column || !HoldsNumber(*column)) continue;
    if (which != nullptr) *which = name;
    return column;
  }
  return std::nullopt;
}

std::vector<const RawCifBlock*> FindPatterns(const Document& document) {
  std::vector<const RawCifBlock*> found;
  for (const RawCifBlock& block : document)
    if (FindAny(block, kMeasured)) found.push_back(&block);
  if (!found.empty()) return found;
  for (const RawCifBlock& block : document)
    if (FindAny(block, kCalculated)) found.push_back(&block);
  return found;
}

/// What a CIF without a readable pattern holds instead.
std::string WhatElse(const Document& document) {
  for (const RawCifBlock& block : document) {
    if (FindCifColumn(block, "_pd_meas_time_of_flight")) return "a time-of-flight pattern";
    if (FindCifColumn(block, "_refln_index_h")) return "reflections of a structure";
    if (FindCifColumn(block, "_atom_site_label")) return "a structure without a pattern";
  }
  return "no counts under a known name";
}

/// The wavelength of a block, or where it tells none that of the only other block that does.
const RawCifBlock& FindWavelengthBlock(const Document& document, const RawCifBlock& block) {
  const auto tells = [](const RawCifBlock& b) { return FindCifNumber(b, "_diffrn_radiation_wavelength").has_value(); };
  if (tells(block) || std::ranges::count_if(document, tells) != 1) return block;
  return *std::ranges::find_if(document, tells);
}

void TakeWavelength(const RawCifBlock& block, Pattern& pattern) {
  std::optional<double> wavelength;
  for (const char* const name :
       {"_diffrn_radiation_wavelength", "_diffraction_radiation_wavelength", "_pd_proc_wavelength"})
    if (!wavelength) wavelength = FindCifNumber(block, name);
  if (!wavelength || !IsWavelength(*wavelength)) return;
  pattern.wavelength = wavelength;
  const auto lines = FindCifColumn(block, "_diffrn_radiation_wavelength");
  if (!lines || lines->Size() != 2) return;
  const auto second = ReadCifNumber(lines->At(1));
  if (!second || !IsWavelength(second->value)) return;
  pattern.wavelength_alpha2 = second->value;
  const auto weights = FindCifColumn(block, "_diffrn_radiation_wavelength_wt");
  if (!weights || weights->Size() != 2) return;
  const auto first_weight = ReadCifNumber(weights->At(0));
  const auto second_weight = ReadCifNumber(weights->At(1));
  if (first_weight && second_weight && first_weight->value > 0.0)
    pattern.alpha2_ratio = second_weight->value / first_weight->value;
}

/// Sets the angle of each row of the counts.
std::vector<double> RowAngles(const std::string& name, const RawCifBlock& block, const CifColumn& counts,
                              std::string_view counts_name, Pattern& pattern, std::vector<std::string>& notices) {
  std::vector<double> angles;
  const auto column = FindAny(block, kAngles);
  if (column && column->Size() == counts.Size()) {
    for (std::size_t row = 0; row < column->Size(); ++row) {
      const auto angle = ReadCifNumber(column->At(row));
      angles.push_back(angle ? angle->value : std::nan(""));
    }
    return angles;
  }
  const bool is_processed = counts_name.starts_with("_pd_proc");
  for (const std::string_view range : {kRanges[is_processed ? 1 : 0], kRanges[is_processed ? 0 : 1]}) {
    const auto number = [&](const char* end) { return FindCifNumber(block, std::string(range) + end); };
    const auto first = number("min");
    const auto last = number("max");
    const auto step = number("inc");
    if (!first || !last || !step) continue;
    if (*step == 0.0) FailInFile(name, "a step that is not 0", "0");
    const double expected = std::floor((*last - *first) / *step + 1.001);
    const double difference = std::abs(expected - static_cast<double>(counts.Size()));
    if (!(difference <= kMiscount))
      FailInFile(name, NumberText(expected) + " counts by the range of 2theta", std::to_string(counts.Size()));
    if (difference > 0.0)
      notices.push_back("The range of 2theta makes " + NumberText(expected) + " points; the " +
                        std::to_string(counts.Size()) + " counts were taken.");
    for (std::size_t row = 0; row < counts.Size(); ++row) angles.push_back(*first + static_cast<double>(row) * *step);
    pattern.step = std::abs(*step);
    return angles;
  }
  FailAtLine(name, counts.loop->line,
             "2theta of the counts (_pd_meas_2theta_scan or _pd_meas_2theta_range_min, _max, _inc)",
             FindCifColumn(block, "_pd_meas_time_of_flight") ? "times of flight" : "none");
}

/// Copies the rows whose count and angle are told.
void TakeRows(const std::string& name, const CifColumn& counts, const std::optional<CifColumn>& su,
              const std::vector<double>& angles, PatternFile& file) {
  Pattern& pattern = file.pattern;
  std::size_t left_out = 0;
  for (std::size_t row = 0; row < counts.Size(); ++row) {
    const std::string_view text = counts.At(row);
    const auto count = ReadCifNumber(text);
    if (!count && text != "." && text != "?")
      FailAtLine(name, counts.loop->line, "numbers in the loop of counts", Quote(text));
    if (!count || std::isnan(angles[row])) {
      ++left_out;
      continue;
    }
    pattern.two_theta.push_back(angles[row]);
    pattern.counts.push_back(count->value);
    const auto sigma = su ? ReadReal<double>(su->At(row)) : count->su;
    if (sigma) pattern.sigma.push_back(*sigma);
  }
  if (pattern.sigma.size() != pattern.PointCount()) pattern.sigma.clear();
  if (left_out > 0) file.notices.push_back(std::to_string(left_out) + " rows without angle or count were passed over.");
}

}  // namespace

PatternFile ReadPowderCif(const std::string& name, std::string_view text, const PatternReadOptions& options) {
  const Document document = Parse(name, text);
  const std::vector<const RawCifBlock*> blocks = FindPatterns(document);
  if (blocks.empty()) FailInFile(name, "a powder pattern (_pd_meas_counts_total and its like)", WhatElse(document));
  PatternFile file;
  file.format = "powder CIF";
  const RawCifBlock& block = *blocks[ChooseScan(name, blocks.size(), options, file)];
  Pattern& pattern = file.pattern;
  if (BeginsWithDataBlock(text)) pattern.title = block.name;
  TakeWavelength(FindWavelengthBlock(document, block), pattern);
  const auto time = FindCifNumber(block, "_pd_meas_step_count_time");
  if (time && *time > 0.0) pattern.step_time = time;
  std::string_view counts_name;
  auto counts = FindAny(block, kMeasured, &counts_name);
  if (!counts) {
    counts = FindAny(block, kCalculated, &counts_name);
    file.notices.emplace_back("The counts are calculated ones; the file holds no measured ones.");
  }
  const std::vector<double> angles = RowAngles(name, block, *counts, counts_name, pattern, file.notices);
  auto su = FindCifColumn(block, std::string(counts_name) + "_su");
  if (su && su->Size() != counts->Size()) su.reset();
  TakeRows(name, *counts, su, angles, file);
  FinishPattern(name, file);
  return file;
}

}  // namespace talven
