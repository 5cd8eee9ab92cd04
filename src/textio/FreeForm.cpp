#include "textio/FreeForm.h"

#include <algorithm>
#include <optional>
#include <string>

#include "textio/FieldInput.h"

namespace talven {
namespace {

constexpr bool IsSeparator(char c) {
  return c == ' ' || c == ',' || c == '\t' || c == '\r' || c == '/';
}

/// The next text between separators, taken off the front of `rest`; empty at its end.
std::string_view NextToken(std::string_view& rest) {
  const auto begin = std::ranges::find_if_not(rest, IsSeparator);
  const auto end = std::find_if(begin, rest.end(), IsSeparator);
  const std::string_view token(begin, end);
  rest = std::string_view(end, rest.end());
  return token;
}

template <typename Number>
std::optional<Number> Convert(std::string_view token) {
  if constexpr (std::is_same_v<Number, float>) {
    return ReadReal<float>(token);
  } else {
    return ReadI(token);
  }
}

/// Fills `values` from the front of a text. Gives how many were stored; `bad` is the token that is no number, if any.
template <typename Number>
std::size_t ReadNumbers(std::string_view text, std::span<Number> values, std::string_view& bad) {
  std::size_t count = 0;
  while (count < values.size()) {
    const std::string_view token = NextToken(text);
    if (token.empty()) break;
    const auto value = Convert<Number>(token);
    if (!value) {
      bad = token;
      break;
    }
    values[count++] = *value;
  }
  return count;
}

template <typename Number>
ReadStatus ReadNumbers(TextInput& file, std::span<Number> values, std::string_view& bad) {
  while (!values.empty()) {
    std::string_view line;
    if (!file.ReadLine(line)) return ReadStatus::kEndOfFile;
    values = values.subspan(ReadNumbers(line, values, bad));
    if (!bad.empty()) return ReadStatus::kMalformed;
  }
  return ReadStatus::kOk;
}

template <typename Number>
void RequireNumbers(TextInput& file, std::span<Number> values, std::string_view what) {
  std::string_view bad;
  const ReadStatus status = ReadNumbers(file, values, bad);
  if (status == ReadStatus::kEndOfFile) file.RequireLine(what);
  if (status == ReadStatus::kMalformed) file.Fail(what, Quote(bad));
}

template <typename Number>
void ParseNumbers(const TextInput& file, std::string_view text, std::span<Number> values, std::string_view what) {
  std::string_view bad;
  const std::size_t count = ReadNumbers(text, values, bad);
  if (count == values.size()) return;
  const std::string expected =
      std::to_string(values.size()) + (values.size() == 1 ? " number " : " numbers ") + std::string(what);
  file.Fail(expected, bad.empty() ? std::to_string(count) : Quote(bad));
}

}  // namespace

ReadStatus ReadReals(TextInput& file, std::span<float> values, std::string_view* bad) {
  std::string_view token;
  const ReadStatus status = ReadNumbers(file, values, token);
  if (bad != nullptr) *bad = token;
  return status;
}

void RequireReals(TextInput& file, std::span<float> values, std::string_view what) {
  RequireNumbers(file, values, what);
}

std::int32_t RequireWholeNumber(TextInput& file, std::string_view what) {
  std::int32_t value = 0;
  RequireNumbers(file, std::span(&value, 1), what);
  return value;
}

void ParseReals(const TextInput& file, std::string_view text, std::span<float> values, std::string_view what) {
  ParseNumbers(file, text, values, what);
}

void ParseWholeNumbers(const TextInput& file, std::string_view text, std::span<std::int32_t> values,
                       std::string_view what) {
  ParseNumbers(file, text, values, what);
}

void FreeFormLine::MakeRoom(std::size_t width) {
  constexpr std::size_t kLastColumn = 81;
  if (record_.Text().size() == 1 || record_.Text().size() + width <= kLastColumn) return;
  End();
}

FreeFormLine& FreeFormLine::Text(std::string_view text) {
  MakeRoom(text.size());
  record_.A(text);
  return *this;
}

FreeFormLine& FreeFormLine::Integer(std::int64_t value) {
  MakeRoom(12);
  record_.I(value, 12);
  return *this;
}

FreeFormLine& FreeFormLine::Real(double value) {
  MakeRoom(15);
  record_.G(value);
  return *this;
}

void FreeFormLine::End() {
  file_.WriteLine(record_);
  record_.Clear();
  record_.X(1);
}

}  // namespace talven
