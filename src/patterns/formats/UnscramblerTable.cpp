#include "patterns/formats/UnscramblerTable.h"

#include <algorithm>
#include <string>

#include "patterns/formats/FinishPattern.h"
#include "patterns/formats/FormatText.h"
#include "textio/FieldInput.h"

namespace talven {
namespace {

constexpr std::size_t kLineLength = 80;
constexpr std::size_t kAngleWidth = 7;
constexpr std::size_t kCountWidth = 7;

/// The next item between commas without its blanks, taken off the front.
std::string_view NextItem(std::string_view& rest) {
  const std::size_t end = std::min(rest.find(','), rest.size());
  const std::string_view item = TrimSpace(rest.substr(0, end));
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return item;
}

void TakeItem(const TextInput& input, std::string_view item, Pattern& pattern) {
  const bool is_angle = item.size() > 2 && item.starts_with('"') && item.ends_with('"');
  const auto number = ReadReal<double>(is_angle ? TrimSpace(item.substr(1, item.size() - 2)) : item);
  if (!number || (is_angle && !pattern.counts.empty()))
    input.Fail(is_angle ? "an angle in quotes ahead of all counts" : "a count", Quote(item));
  (is_angle ? pattern.two_theta : pattern.counts).push_back(*number);
}

/// Puts items on lines that none of them passes the end of.
class ItemLines {
 public:
  explicit ItemLines(TextOutput& output) : output_(output) {}
  void Add(const std::string& item, bool is_last) {
    if (line_.size() + item.size() + 1 > kLineLength) End();
    line_.append(item).append(is_last ? " " : ",");
    if (is_last) End();
  }

 private:
  void End() {
    output_.WriteLine(line_);
    line_.clear();
  }
  TextOutput& output_;
  std::string line_;
};

}  // namespace

bool LooksLikeUnscramblerTable(std::string_view text) {
  const std::vector<std::string_view> lines = FirstLines(text, 1);
  if (lines.empty()) return false;
  std::string_view rest = lines.front();
  const std::string_view item = NextItem(rest);
  return item.size() > 2 && item.starts_with('"') && item.ends_with('"') &&
         ReadReal<double>(TrimSpace(item.substr(1, item.size() - 2)));
}

PatternFile ReadUnscramblerTable(TextInput& input) {
  PatternFile file;
  file.format = "TXT";
  ReservePoints(input.Content().size() / 2, file.pattern);
  for (std::string_view line; input.ReadLine(line);) {
    std::string_view rest = TrimSpace(line);
    while (!rest.empty()) TakeItem(input, NextItem(rest), file.pattern);
  }
  const std::size_t angles = file.pattern.two_theta.size();
  if (angles != file.pattern.PointCount())
    FailInFile(input.Name(), "as many counts as angles, " + std::to_string(angles),
               std::to_string(file.pattern.PointCount()));
  FinishPattern(input.Name(), file);
  return file;
}

void WriteUnscramblerTable(const Pattern& pattern, TextOutput& output) {
  ItemLines lines(output);
  const std::size_t count = pattern.PointCount();
  for (std::size_t i = 0; i < count; ++i)
    lines.Add('"' + AlignRight(AngleText(pattern.two_theta[i]), kAngleWidth) + '"', i + 1 == count);
  for (std::size_t i = 0; i < count; ++i)
    lines.Add(AlignRight(NumberText(pattern.counts[i]), kCountWidth), i + 1 == count);
}

}  // namespace talven
