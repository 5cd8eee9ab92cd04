#include "patterns/formats/FormatText.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "textio/FatalIoError.h"
#include "textio/FieldInput.h"

namespace talven {
namespace {

constexpr std::string_view kSpace = " \t\r\n\f\v";

}  // namespace

void FailInFile(std::string_view file, std::string_view expected, std::string_view found) {
  std::string text(file);
  text.append(": expected ").append(expected).append(", found ").append(found);
  throw FatalIoError(text);
}

std::string_view NextWord(std::string_view& rest) {
  const std::size_t begin = std::min(rest.find_first_not_of(kSpace), rest.size());
  const std::size_t end = std::min(rest.find_first_of(kSpace, begin), rest.size());
  const std::string_view word = rest.substr(begin, end - begin);
  rest.remove_prefix(end);
  return word;
}

std::size_t CountWords(std::string_view text) {
  std::size_t count = 0;
  while (!NextWord(text).empty()) ++count;
  return count;
}

std::string_view TrimSpace(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(kSpace);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(kSpace) - begin + 1);
}

std::size_t FindNoCase(std::string_view text, std::string_view lower_case) {
  const auto found = std::search(text.begin(), text.end(), lower_case.begin(), lower_case.end(),
                                 [](char a, char b) { return LowerCase(a) == b; });
  return found == text.end() ? std::string_view::npos : static_cast<std::size_t>(found - text.begin());
}

std::optional<double> LeadingNumber(std::string_view line) {
  std::string_view word = NextWord(line);
  word = word.substr(0, word.find_first_of(",;"));
  return ReadReal<double>(word);
}

double RequireLeadingNumber(const TextInput& input, std::string_view line, std::string_view expected) {
  const auto number = LeadingNumber(line);
  if (!number) input.Fail(expected, Quote(line));
  return *number;
}

std::vector<std::string_view> FirstLines(std::string_view text, std::size_t count) {
  std::vector<std::string_view> lines;
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  while (lines.size() < count && !text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    while (line.ends_with('\r')) line.remove_suffix(1);
    lines.push_back(line);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

std::string NumberText(double value) {
  std::array<char, 64> text;
  const bool is_plain = value == 0.0 || (value > -1e15 && value < 1e15 && (value > 1e-5 || value < -1e-5));
  const auto result = is_plain ? std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed)
                               : std::to_chars(text.data(), text.data() + text.size(), value);
  return {text.data(), result.ptr};
}

std::string AngleText(double degrees) {
  std::array<char, 400> text;
  const auto result = std::to_chars(text.data(), text.data() + text.size(), degrees, std::chars_format::fixed, 10);
  std::string_view digits(text.data(), result.ptr);
  while (digits.ends_with('0')) digits.remove_suffix(1);
  if (digits.ends_with('.')) digits.remove_suffix(1);
  return std::string(digits == "-0" ? "0" : digits);
}

std::string AlignRight(std::string_view text, std::size_t width) {
  std::string aligned(text.size() < width ? width - text.size() : 0, ' ');
  return aligned.append(text);
}

}  // namespace talven
