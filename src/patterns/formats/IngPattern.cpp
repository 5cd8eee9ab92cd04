#include "patterns/formats/IngPattern.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "patterns/formats/FinishPattern.h"
#include "patterns/formats/FormatText.h"
#include "patterns/formats/RemarkedWavelength.h"
#include "textio/FieldInput.h"

namespace talven {
namespace {

constexpr std::size_t kHeadLines = 7;
/// "1 2" and the end of its line.
constexpr std::size_t kShortestRow = 4;
/// Writers of ING heads count points by dropped fractions, and come out up to so many beside the rows.
constexpr double kMiscount = 2.0;
/// Half of the last decimal of a row, and a trace for its stored form.
constexpr double kRowRounding = 0.00501;

/// Lines 2 to 7, in their order.
struct Head {
  double wavelength = 0.0;
  double first = 0.0;
  double last = 0.0;
  double step = 0.0;
  double step_time = 0.0;
  double point_count = 0.0;
};

Head ReadHead(TextInput& ing, Pattern& pattern) {
  pattern.title = TrimSpace(ing.RequireLine("a title"));
  const auto number = [&](const char* what) { return RequireLeadingNumber(ing, ing.RequireLine(what), what); };
  Head head;
  head.wavelength = number("a wavelength");
  head.first = number("the first angle");
  head.last = number("the last angle");
  head.step = number("a step");
  head.step_time = number("a counting time");
  head.point_count = number("a number of points");
  return head;
}

/// Blanks, commas and slashes part the numbers of a row.
std::string_view NextItem(std::string_view& rest) {
  constexpr std::string_view kSeparators = " ,\t\r/";
  const std::size_t begin = std::min(rest.find_first_not_of(kSeparators), rest.size());
  const std::size_t end = std::min(rest.find_first_of(kSeparators, begin), rest.size());
  const std::string_view item = rest.substr(begin, end - begin);
  rest.remove_prefix(end);
  return item;
}

void TakeReflection(std::string_view rest, Pattern& pattern) {
  std::array<std::int32_t, 3> index{};
  for (std::int32_t& i : index) {
    const std::string_view item = NextItem(rest);
    const auto value = item.empty() ? std::nullopt : ReadI(item);
    if (!value) return;
    i = *value;
  }
  pattern.reflections.push_back({pattern.PointCount() - 1, index[0], index[1], index[2]});
}

void TakeRow(const TextInput& ing, std::string_view line, Pattern& pattern) {
  std::string_view rest = line;
  const auto angle = ReadReal<double>(NextItem(rest));
  const auto count = ReadReal<double>(NextItem(rest));
  if (!angle || !count) ing.Fail("2theta and counts", Quote(line));
  pattern.two_theta.push_back(*angle);
  pattern.counts.push_back(*count);
  TakeReflection(rest, pattern);
}

void CheckCount(const TextInput& ing, const Head& head, PatternFile& file) {
  const std::size_t rows = file.pattern.PointCount();
  const double difference = std::abs(head.point_count - static_cast<double>(rows));
  if (difference == 0.0) return;
  const std::string count = NumberText(head.point_count);
  if (difference > kMiscount) FailInFile(ing.Name(), count + " rows, as line 7 tells", std::to_string(rows));
  file.notices.push_back("Line 7 gives " + count + " points; the " + std::to_string(rows) + " rows were taken.");
}

bool StandsFor(const std::vector<double>& rows, double first, double step) {
  for (std::size_t i = 0; i < rows.size(); ++i)
    if (!(std::abs(rows[i] - (first + static_cast<double>(i) * step)) <= kRowRounding)) return false;
  return true;
}

/// Rows with two decimals cannot show a step of 0.015: the angles are then those that the rows are rounded from.
void UnroundAngles(const TextInput& ing, const Head& head, Pattern& pattern) {
  const std::vector<double>& rows = pattern.two_theta;
  const auto has_two_decimals = [](double a) { return std::abs(a * 100.0 - std::round(a * 100.0)) < 1e-7; };
  if (rows.size() < 2 || !std::ranges::all_of(rows, has_two_decimals)) return;
  const double mean = (rows.back() - rows.front()) / static_cast<double>(rows.size() - 1);
  if (StandsFor(rows, head.first, head.step)) {
    SetEvenAngles(ing.Name(), head.first, head.step, pattern);
  } else if (mean > 0.0 && StandsFor(rows, rows.front(), mean)) {
    SetEvenAngles(ing.Name(), rows.front(), mean, pattern);
  }
}

}  // namespace

bool LooksLikeIng(std::string_view text) {
  const std::vector<std::string_view> lines = FirstLines(text, kHeadLines + 1);
  if (lines.size() <= kHeadLines) return false;
  for (std::size_t i = 1; i < kHeadLines; ++i) {
    std::string_view rest = lines[i];
    if (!ReadReal<double>(NextItem(rest)) || ReadReal<double>(NextItem(rest))) return false;
  }
  std::string_view rest = lines[kHeadLines];
  return ReadReal<double>(NextItem(rest)) && ReadReal<double>(NextItem(rest));
}

PatternFile ReadIng(TextInput& ing) {
  PatternFile file;
  file.format = "ING";
  Pattern& pattern = file.pattern;
  const Head head = ReadHead(ing, pattern);
  std::vector<std::uint32_t> lines;
  ReservePoints(ing.Content().size() / kShortestRow, pattern);
  lines.reserve(ing.Content().size() / kShortestRow);
  for (std::string_view line; ing.ReadLine(line);) {
    if (TrimSpace(line).empty()) continue;
    TakeRow(ing, line, pattern);
    lines.push_back(static_cast<std::uint32_t>(ing.LineNumber()));
  }
  CheckCount(ing, head, file);
  if (IsWavelength(head.wavelength)) pattern.wavelength = head.wavelength;
  if (head.step_time > 0.0) pattern.step_time = head.step_time;
  if (head.step > 0.0) pattern.step = head.step;
  if (pattern.PointCount() > 1 && head.step > 0.0 && !HasExactSteps(pattern)) UnroundAngles(ing, head, pattern);
  FinishPattern(ing.Name(), file, lines);
  if (head.step > 0.0 && pattern.step != head.step)
    file.notices.push_back("Line 5 gives " + NumberText(head.step) + ", which is not the step of the rows.");
  return file;
}

void WriteIng(const Pattern& pattern, const std::string& title, TextOutput& output) {
  const double first = pattern.two_theta.front();
  const double last = pattern.two_theta.back();
  const double step = pattern.step.value_or((last - first) / static_cast<double>(pattern.PointCount() - 1));
  output.WriteLine(title);
  for (const double value : {*pattern.wavelength, first, last, step, pattern.step_time.value_or(0.0)})
    output.WriteLine(' ' + AlignRight(AngleText(value), 10));
  output.WriteLine(' ' + AlignRight(std::to_string(pattern.PointCount()), 10));
  auto reflection = pattern.reflections.begin();
  for (std::size_t i = 0; i < pattern.PointCount(); ++i) {
    std::string row =
        ' ' + AlignRight(AngleText(pattern.two_theta[i]), 8) + "   " + AlignRight(NumberText(pattern.counts[i]), 10);
    while (reflection != pattern.reflections.end() && reflection->point < i) ++reflection;
    if (reflection != pattern.reflections.end() && reflection->point == i)
      for (const std::int32_t index : {reflection->h, reflection->k, reflection->l})
        row += ' ' + AlignRight(std::to_string(index), 4);
    output.WriteLine(row);
  }
}

}  // namespace talven
