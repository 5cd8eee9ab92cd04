#include "patterns/formats/Riet7Pattern.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <span>

#include "patterns/formats/FinishPattern.h"
#include "patterns/formats/FormatText.h"
#include "patterns/formats/RemarkedWavelength.h"
#include "textio/FieldInput.h"
#include "textio/FixedText.h"

namespace talven {
namespace {

constexpr std::size_t kMostTitles = 6;
constexpr std::size_t kFieldWidth = 8;
constexpr std::size_t kColumns = 10;
constexpr std::size_t kLookedAt = 4;
constexpr std::size_t kMiscount = 2;
constexpr std::string_view kSimulatedTitle = "Mirade/Talven Shelx HKL to RIET7 DAT";
/// Words of that title, and start, step and end.
constexpr std::size_t kSimulatedHeadWords = 9;

struct Range {
  double first = 0.0;
  double step = 0.0;
  double last = 0.0;
  double PointCount() const { return std::round((last - first) / step) + 1.0; }
};

/// Three numbers at the front of a line.
std::optional<Range> FindThree(std::string_view line) {
  std::array<double, 3> value{};
  for (double& v : value) {
    std::string_view word = NextWord(line);
    if (word.ends_with(',')) word.remove_suffix(1);
    const auto number = ReadReal<double>(word);
    if (!number) return std::nullopt;
    v = *number;
  }
  return Range{value[0], value[1], value[2]};
}

/// A head like any other but for its step.
bool StandsStill(const Range& range) {
  return range.step == 0.0 && range.first < range.last && range.last <= 180.0;
}

/// Start, step and end at the front of a line, if three numbers there can be that.
std::optional<Range> FindRange(std::string_view line) {
  const auto range = FindThree(line);
  if (!range || StandsStill(*range)) return range;
  const double steps = (range->last - range->first) / range->step;
  const bool is_whole = std::abs(steps - std::round(steps)) <= 0.01 + 1e-5 * std::abs(steps);
  if (!(steps >= 1.0) || !(steps < 1e15) || !is_whole || !(range->step > 0.0) || range->last > 180.0)
    return std::nullopt;
  return range;
}

/// Number of titles ahead of the range; nothing if there is no range.
std::optional<std::size_t> CountTitles(const std::vector<std::string_view>& lines) {
  for (std::size_t i = 0; i <= kMostTitles && i + 1 < lines.size(); ++i)
    if (FindRange(lines[i])) return i;
  return std::nullopt;
}

/// A table of three columns may begin with numbers like start, step and end, but goes on with rows of three at rising
/// angles.
bool IsTable(std::span<const std::string_view> lines) {
  double before = LeadingNumber(lines.front()).value_or(0.0);
  for (const std::string_view line : lines.subspan(1)) {
    const auto angle = LeadingNumber(line);
    if (CountWords(line) != 3 || !angle || *angle <= before) return false;
    before = *angle;
  }
  return true;
}

/// The next number of a line, taken off its front. Fields of eight columns that touch are parted there.
std::optional<double> NextNumber(std::string_view& rest, std::size_t length) {
  const std::string_view before = rest;
  const std::string_view word = NextWord(rest);
  if (word.size() > kFieldWidth && length % kFieldWidth == 0 && word.find_first_of(".eE") == std::string_view::npos) {
    const std::size_t column = length - before.size();
    const std::size_t end = (column / kFieldWidth + 1) * kFieldWidth;
    rest = before.substr(std::min(end - column, before.size()));
    return ReadReal<double>(TrimSpace(before.substr(0, end - column)));
  }
  return ReadReal<double>(word);
}

/// Reads up to so many numbers from the next lines. False at the first word that is none or at the end of the file.
/// `rest` is what stands after the last one on its line.
bool ReadNumbers(TextInput& dat, std::size_t count, std::vector<double>& values, std::string_view& rest) {
  for (std::string_view line; values.size() < count && dat.ReadLine(line);) {
    const std::size_t length = line.size();
    while (values.size() < count && !TrimSpace(line).empty()) {
      const auto number = NextNumber(line, length);
      if (!number) return false;
      values.push_back(*number);
    }
    rest = line;
  }
  return values.size() == count;
}

/// Numbers after the last count: zeros fill its line, one or two are a miscount of the writer, more are no counts by
/// start, step and end.
void CheckRest(const TextInput& dat, std::string_view rest, PatternFile& file) {
  std::size_t numbers = 0;
  for (auto value = ReadReal<double>(NextWord(rest)); value; value = ReadReal<double>(NextWord(rest)))
    if (*value != 0.0) ++numbers;
  const std::string count = std::to_string(file.pattern.PointCount());
  if (numbers > kMiscount)
    dat.Fail(count + " counts by start, step and end", std::to_string(numbers) + " more on the line");
  if (numbers > 0)
    file.notices.push_back("Start, step and end make " + count + " points; " + std::to_string(numbers) +
                           " more on the line of the last one were passed over.");
}

/// A simulation's DAT has the length of the title for its start, and leaves out the points that fill no line of ten.
void RefuseSimulated(const TextInput& dat) {
  FailInFile(dat.Name(), "a head with the first angle",
             "the length of the title, as simulations write it; the ING or XY file of the job holds the same pattern");
}

/// What stands after start, step and end.
std::string_view AfterRange(std::string_view line) {
  for (int i = 0; i < 3; ++i) NextWord(line);
  return TrimSpace(line);
}

Range ReadHead(TextInput& dat, PatternFile& file) {
  for (std::size_t i = 0; i <= kMostTitles; ++i) {
    const std::string_view line = dat.RequireLine("start, step and end");
    if (const auto range = FindRange(line)) {
      if (StandsStill(*range)) dat.Fail("a step that is not 0", "0");
      if (file.pattern.title.empty()) file.pattern.title = AfterRange(line);
      return *range;
    }
    if (file.pattern.title.empty()) file.pattern.title = TrimSpace(line);
    TakeRemarkedWavelength(line, dat.LineNumber(), file);
  }
  dat.Fail("start, step and end", "another title");
}

}  // namespace

bool LooksLikeRiet7(std::string_view text) {
  const std::vector<std::string_view> lines = FirstLines(text, kMostTitles + kLookedAt);
  const auto titles = CountTitles(lines);
  if (!titles) return false;
  return !IsTable(std::span(lines).subspan(*titles, std::min(kLookedAt, lines.size() - *titles)));
}

PatternFile ReadRiet7(TextInput& dat) {
  PatternFile file;
  file.format = "RIET7 DAT";
  const Range range = ReadHead(dat, file);
  const auto count = static_cast<std::size_t>(range.PointCount());
  Pattern& pattern = file.pattern;
  pattern.counts.reserve(std::min(count, dat.Content().size() / 2));
  std::string_view rest;
  if (!ReadNumbers(dat, count, pattern.counts, rest)) {
    if (pattern.title == kSimulatedTitle) RefuseSimulated(dat);
    dat.Fail(std::to_string(count) + " counts by start, step and end", std::to_string(pattern.PointCount()));
  }
  if (pattern.title == kSimulatedTitle && CountWords(dat.Content()) != count + kSimulatedHeadWords)
    RefuseSimulated(dat);
  CheckRest(dat, rest, file);
  if (!ReadNumbers(dat, count, pattern.sigma, rest)) {
    if (!pattern.sigma.empty())
      file.notices.push_back("Only " + std::to_string(pattern.sigma.size()) +
                             " numbers follow the counts: they were not taken as standard deviations.");
    pattern.sigma.clear();
  }
  SpreadAngles(dat.Name(), range.first, range.last, pattern);
  FinishPattern(dat.Name(), file);
  return file;
}

void WriteRiet7(const Pattern& pattern, const std::string& title, TextOutput& output) {
  output.WriteLine(title);
  for (int line = 2; line <= 4; ++line) output.WriteLine("  ");
  output.WriteLine(AlignRight(AngleText(pattern.two_theta.front()), kFieldWidth) + ' ' +
                   AlignRight(AngleText(*pattern.step), kFieldWidth - 1) + ' ' +
                   AlignRight(AngleText(pattern.two_theta.back()), kFieldWidth - 1));
  std::string row;
  for (std::size_t i = 0; i < pattern.PointCount(); ++i) {
    row += ' ' + AlignRight(NumberText(pattern.counts[i]), kFieldWidth - 1);
    if ((i + 1) % kColumns != 0 && i + 1 < pattern.PointCount()) continue;
    output.WriteLine(row);
    row.clear();
  }
}

}  // namespace talven
