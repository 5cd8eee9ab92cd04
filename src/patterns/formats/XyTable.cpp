#include "patterns/formats/XyTable.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string>

#include "patterns/formats/FinishPattern.h"
#include "patterns/formats/FormatText.h"
#include "patterns/formats/RemarkedWavelength.h"
#include "textio/FieldInput.h"

namespace talven {
namespace {

constexpr std::size_t kMostColumns = 3;
/// "1 2" and the end of its line.
constexpr std::size_t kShortestRow = 4;

constexpr bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// True for a comma between two digits.
bool HasInnerComma(std::string_view word) {
  const std::size_t comma = word.find(',');
  return comma != std::string_view::npos && comma > 0 && comma + 1 < word.size() && IsDigit(word[comma - 1]) &&
         IsDigit(word[comma + 1]);
}

bool IsRemark(std::string_view text) {
  return std::string_view("#!;%'\"/").find(text.front()) != std::string_view::npos || StartsIgnoringCase(text, "rem");
}

/// A remark without what makes it one.
std::string_view RemarkText(std::string_view text) {
  if (StartsIgnoringCase(text, "rem ")) text.remove_prefix(3);
  return TrimSpace(text.substr(std::min(text.find_first_not_of("#!;%'\"/* \t"), text.size())));
}

/// A row without a remark after its numbers.
std::string_view WithoutRemark(std::string_view text) {
  return TrimSpace(text.substr(0, text.find_first_of("#!")));
}

/// Reads the rows of one table.
class TableReader {
 public:
  explicit TableReader(TextInput& input) : input_(input) {}

  PatternFile Read() {
    ReservePoints(input_.Content().size() / kShortestRow, file_.pattern);
    lines_.reserve(input_.Content().size() / kShortestRow);
    for (std::string_view line; input_.ReadLine(line);) TakeLine(TrimSpace(line));
    if (file_.pattern.counts.empty()) FailInFile(input_.Name(), "a pattern in a known format", "none");
    CheckToldCount();
    NoticeCutText(input_.Content(), file_);
    file_.format = columns_ == 3 ? "XYE" : "XY";
    FinishPattern(input_.Name(), file_, lines_);
    return std::move(file_);
  }

 private:
  void TakeLine(std::string_view text) {
    if (text.empty()) return;
    if (in_comment_ || text.starts_with("/*")) {
      in_comment_ = text.find("*/") == std::string_view::npos;
      TakeRemark(text);
    } else if (IsRemark(text)) {
      TakeRemark(text);
    } else if (!TakeRow(WithoutRemark(text))) {
      if (columns_ != 0) input_.Fail(std::to_string(columns_) + " numbers", Quote(text));
      TakeRemark(text);
    }
  }

  void TakeRemark(std::string_view text) {
    TakeRemarkedWavelength(text, input_.LineNumber(), file_);
    const bool is_column_head =
        FindNoCase(text, "theta") != std::string_view::npos || FindNoCase(text, "angle") != std::string_view::npos;
    if (file_.pattern.title.empty() && columns_ == 0 && !is_column_head && text.find('=') == std::string_view::npos)
      file_.pattern.title = RemarkText(text);
  }

  /// False if the line does not consist of numbers.
  bool TakeRow(std::string_view text) {
    std::array<double, kMostColumns> value{};
    const std::size_t count = SplitRow(text, value);
    if (count == 0) return false;
    if (columns_ == 0 && count == 1 && TakeToldCount(value[0])) return true;
    if (columns_ == 0 && (count == 1 || count > kMostColumns))
      input_.Fail("two or three columns", std::to_string(count));
    if (columns_ == 0) columns_ = count;
    if (count != columns_) return false;
    file_.pattern.two_theta.push_back(value[0]);
    file_.pattern.counts.push_back(value[1]);
    if (columns_ == 3) file_.pattern.sigma.push_back(value[2]);
    lines_.push_back(static_cast<std::uint32_t>(input_.LineNumber()));
    return true;
  }

  /// A number alone on one line ahead of the rows is how many of them there are.
  bool TakeToldCount(double value) {
    if (told_count_ || value < 2.0 || value != std::floor(value)) return false;
    told_count_ = value;
    return true;
  }

  void CheckToldCount() const {
    const std::size_t rows = file_.pattern.PointCount();
    if (told_count_ && *told_count_ != static_cast<double>(rows))
      FailInFile(input_.Name(), NumberText(*told_count_) + " rows, as the number ahead of them tells",
                 std::to_string(rows));
  }

  /// Number of columns, 0 if one of them is no number. Values beyond the third are not kept.
  std::size_t SplitRow(std::string_view text, std::array<double, kMostColumns>& value) {
    const bool has_gaps = text.find_first_of(" \t;") != std::string_view::npos;
    const bool is_whole_numbers = text.find_first_not_of("0123456789,+-") == std::string_view::npos;
    if (!has_gaps && is_whole_numbers && std::ranges::count(text, ',') > 2)
      input_.Fail("columns that stand apart by more than the decimal comma", Quote(text));
    const std::string_view separators = has_gaps ? " \t;" : ",";
    std::size_t count = 0;
    while (!text.empty()) {
      const std::size_t end = std::min(text.find_first_of(separators), text.size());
      std::string_view word = text.substr(0, end);
      text.remove_prefix(std::min(end + 1, text.size()));
      if (has_gaps && word.ends_with(',')) word.remove_suffix(1);
      if (word.empty()) continue;
      const auto number = ReadNumber(word);
      if (!number) return 0;
      if (count < kMostColumns) value[count] = *number;
      ++count;
    }
    return count;
  }

  std::optional<double> ReadNumber(std::string_view word) {
    const bool has_comma = HasInnerComma(word);
    std::string plain;
    if (has_comma) {
      plain = word;
      std::ranges::replace(plain, ',', '.');
    }
    const auto number = ReadReal<double>(has_comma ? std::string_view(plain) : word);
    if (!number) return number;
    has_commas_ |= has_comma;
    has_points_ |= word.find('.') != std::string_view::npos;
    if (has_points_ && has_commas_) input_.Fail("points or commas as decimal signs, not both", Quote(word));
    return number;
  }

  TextInput& input_;
  PatternFile file_;
  std::vector<std::uint32_t> lines_;
  std::size_t columns_ = 0;
  std::optional<double> told_count_;
  bool in_comment_ = false;
  bool has_points_ = false;
  bool has_commas_ = false;
};

}  // namespace

PatternFile ReadXyTable(TextInput& input) {
  return TableReader(input).Read();
}

void WriteXy(const Pattern& pattern, TextOutput& output) {
  for (std::size_t i = 0; i < pattern.PointCount(); ++i)
    output.WriteLine(AngleText(pattern.two_theta[i]) + ' ' + NumberText(pattern.counts[i]));
}

void WriteXye(const Pattern& pattern, TextOutput& output) {
  for (std::size_t i = 0; i < pattern.PointCount(); ++i)
    output.WriteLine(AngleText(pattern.two_theta[i]) + ' ' + NumberText(pattern.counts[i]) + ' ' +
                     NumberText(pattern.sigma[i]));
}

}  // namespace talven
