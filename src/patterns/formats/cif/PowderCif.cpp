#include "patterns/formats/cif/PowderCif.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

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
/// What the parser calls a block whose name is empty.
constexpr std::string_view kNoName = "#";
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
  for (const char* const name : {"_diffrn_radiation_wavelength", "_diffrn_radiation_wavelength_value",
                                 "_diffraction_radiation_wavelength", "_pd_proc_wavelength"})
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

/// What the readers of angles want to know.
struct Counts {
  const std::string& file;
  const RawCifBlock& block;
  const CifColumn& column;
  std::string_view name;
  std::size_t Size() const { return column.Size(); }
};

std::optional<double> FindRangeNumber(const RawCifBlock& block, std::string_view range, const char* end) {
  return FindCifNumber(block, std::string(range) + end);
}

/// The numbers of points that the block tells, measured and processed.
std::vector<double> ToldCounts(const RawCifBlock& block) {
  std::vector<double> told;
  for (const char* const name : {"_pd_meas_number_of_points", "_pd_proc_number_of_points"})
    if (const auto number = FindCifNumber(block, name)) told.push_back(*number);
  return told;
}

/// Blocks often tell more points than they give, for the excluded ones are left out. Less than half are a torn file.
void CheckToldCount(const Counts& counts, std::vector<std::string>& notices) {
  const std::vector<double> told = ToldCounts(counts.block);
  const auto rows = static_cast<double>(counts.Size());
  if (told.empty() || std::ranges::find(told, rows) != told.end()) return;
  const std::string number = NumberText(std::ranges::min(told));
  if (rows < 0.5 * std::ranges::min(told))
    FailInFile(counts.file, number + " rows of counts, as the number of points tells", NumberText(rows));
  notices.push_back("The number of points is told as " + number + "; the " + NumberText(rows) + " rows were taken.");
}

/// The step of a range: its own, or where only its ends are told that of as many points as the block tells.
std::optional<double> FindStep(const Counts& counts, std::string_view range, double first, std::optional<double> last) {
  if (const auto step = FindRangeNumber(counts.block, range, "inc")) return step;
  const std::vector<double> told = ToldCounts(counts.block);
  const auto rows = static_cast<double>(counts.Size());
  if (!last || rows < 2.0 || std::ranges::find(told, rows) == told.end()) return std::nullopt;
  return (*last - first) / (rows - 1.0);
}

void CheckLastAngle(const Counts& counts, double first, double last, double step, std::vector<std::string>& notices) {
  const double expected = std::floor((last - first) / step + 1.001);
  const double difference = std::abs(expected - static_cast<double>(counts.Size()));
  if (!(difference <= kMiscount))
    FailInFile(counts.file, NumberText(expected) + " counts by the range of 2theta", std::to_string(counts.Size()));
  if (difference > 0.0)
    notices.push_back("The range of 2theta makes " + NumberText(expected) + " points; the " +
                      std::to_string(counts.Size()) + " counts were taken.");
}

/// Angles from a range; none where it is not told.
std::vector<double> RangeAngles(const Counts& counts, std::string_view range, Pattern& pattern,
                                std::vector<std::string>& notices) {
  const auto first = FindRangeNumber(counts.block, range, "min");
  if (!first) return {};
  const auto last = FindRangeNumber(counts.block, range, "max");
  const auto step = FindStep(counts, range, *first, last);
  if (!step) return {};
  if (*step == 0.0) FailInFile(counts.file, "a step that is not 0", "0");
  if (last) CheckLastAngle(counts, *first, *last, *step, notices);
  std::vector<double> angles;
  for (std::size_t row = 0; row < counts.Size(); ++row) angles.push_back(*first + static_cast<double>(row) * *step);
  pattern.step = std::abs(*step);
  return angles;
}

/// Angles from a column of the same length; none where there is no such. NaN where a row has no angle.
std::vector<double> ColumnAngles(const Counts& counts) {
  std::vector<double> angles;
  const auto column = FindAny(counts.block, kAngles);
  if (!column || column->Size() != counts.Size()) return angles;
  for (std::size_t row = 0; row < column->Size(); ++row) {
    const auto angle = ReadCifNumber(column->At(row));
    angles.push_back(angle ? angle->value : std::nan(""));
  }
  return angles;
}

/// Angles by Bragg's law, where the block gives spacings and one wavelength.
std::vector<double> SpacingAngles(const Counts& counts, const Pattern& pattern, std::vector<std::string>& notices) {
  const auto column = FindCifColumn(counts.block, "_pd_proc_d_spacing");
  if (!column || column->Size() != counts.Size() || !pattern.wavelength) return {};
  std::vector<double> angles;
  for (std::size_t row = 0; row < column->Size(); ++row) {
    const auto spacing = ReadCifNumber(column->At(row));
    const double sine = spacing ? *pattern.wavelength / (2.0 * spacing->value) : std::nan("");
    angles.push_back(2.0 * std::asin(sine) * 180.0 / std::numbers::pi);
  }
  notices.emplace_back("The angles follow from the d spacings and the wavelength.");
  return angles;
}

/// The angle of each row of the counts.
std::vector<double> RowAngles(const Counts& counts, Pattern& pattern, std::vector<std::string>& notices) {
  CheckToldCount(counts, notices);
  std::vector<double> angles = ColumnAngles(counts);
  const bool is_processed = counts.name.starts_with("_pd_proc");
  for (const std::string_view range : {kRanges[is_processed ? 1 : 0], kRanges[is_processed ? 0 : 1]})
    if (angles.empty()) angles = RangeAngles(counts, range, pattern, notices);
  if (angles.empty()) angles = SpacingAngles(counts, pattern, notices);
  if (!angles.empty()) return angles;
  FailAtLine(counts.file, counts.column.loop->line,
             "2theta of the counts (_pd_meas_2theta_scan or _pd_meas_2theta_range_min, _max, _inc)",
             FindCifColumn(counts.block, "_pd_meas_time_of_flight") ? "times of flight" : "none");
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
  if (BeginsWithDataBlock(text) && block.name != kNoName) pattern.title = block.name;
  TakeWavelength(FindWavelengthBlock(document, block), pattern);
  const auto time = FindCifNumber(block, "_pd_meas_step_count_time");
  if (time && *time > 0.0) pattern.step_time = time;
  std::string_view counts_name;
  auto counts = FindAny(block, kMeasured, &counts_name);
  if (!counts) {
    counts = FindAny(block, kCalculated, &counts_name);
    file.notices.emplace_back("The counts are calculated ones; the file holds no measured ones.");
  }
  const std::vector<double> angles =
      RowAngles({.file = name, .block = block, .column = *counts, .name = counts_name}, pattern, file.notices);
  auto su = FindCifColumn(block, std::string(counts_name) + "_su");
  if (su && su->Size() != counts->Size()) su.reset();
  TakeRows(name, *counts, su, angles, file);
  NoticeCutText(text, file);
  FinishPattern(name, file);
  return file;
}

}  // namespace talven
