#include "shelx/List4File.h"

#include "textio/FieldInput.h"
#include "textio/FixedText.h"

namespace talven {
namespace {

/// True if the status column of the narrow layout holds the letter of an observed reflection.
bool HasNarrowStatus(std::string_view line) {
  return ColumnAt(line, 48) == 'o';
}

/// A field of the wide layout; a blank one is none.
std::string_view Field(std::string_view line, std::size_t first, std::size_t last) {
  const std::string_view field = Trim(Columns(line, first, last));
  return field.empty() ? "blank" : field;
}

constexpr bool IsStatus(char c) {
  return c > ' ' && !(c >= '0' && c <= '9') && c != '.';
}

std::optional<List4Row> ReadWideRow(std::string_view line) {
  if (HasNarrowStatus(line) || ColumnAt(line, 54) != ' ' || !IsStatus(ColumnAt(line, 55))) return std::nullopt;
  const auto h = ReadI(Field(line, 1, 4));
  const auto k = ReadI(Field(line, 5, 8));
  const auto l = ReadI(Field(line, 9, 12));
  const auto calculated = ReadF(Field(line, 13, 26), 2);
  const auto measured = ReadF(Field(line, 27, 40), 0);
  const auto sigma = ReadF(Field(line, 41, 53), 0);
  if (!h || !k || !l || !calculated || !measured || !sigma) return std::nullopt;
  return List4Row{*h, *k, *l, *calculated, *measured, *sigma};
}

std::optional<List4Row> ReadNarrowRow(std::string_view line, List4Values wanted) {
  const bool measured_wanted = wanted == List4Values::kMeasured;
  const auto h = ReadI(Columns(line, 1, 4));
  const auto k = ReadI(Columns(line, 5, 8));
  const auto l = ReadI(Columns(line, 9, 12));
  const auto calculated = ReadF(Columns(line, 13, 24), measured_wanted ? 0 : 2);
  if (!h || !k || !l || !calculated) return std::nullopt;
  if (!measured_wanted) return List4Row{.H = *h, .K = *k, .L = *l, .CalculatedF2 = *calculated};
  const auto measured = ReadF(Columns(line, 25, 36), 0);
  const auto sigma = ReadF(Columns(line, 37, 46), 0);
  if (!measured || !sigma) return std::nullopt;
  return List4Row{.H = *h, .K = *k, .L = *l, .MeasuredF2 = *measured, .Sigma = *sigma};
}

}  // namespace

bool BeginsList4(std::string_view line) {
  return HasNarrowStatus(line) || ReadWideRow(line);
}

std::optional<List4Row> List4Reader::Read(std::string_view line) {
  const auto wide = ReadWideRow(line);
  if (is_first_) is_wide_ = wide.has_value();
  is_first_ = false;
  if (wide) return wide;
  const auto row = ReadNarrowRow(line, wanted_);
  if (row && is_wide_ && !HasNarrowStatus(line) && !row->EndsList()) return std::nullopt;
  return row;
}

std::int32_t CountLineTokens(std::string_view line) {
  const std::string_view seen = line.substr(0, 80);
  std::int32_t count = 0;
  for (std::size_t i = 1; i < seen.size(); ++i) {
    const bool is_blank = seen[i - 1] == ' ';
    const bool begins_text = static_cast<unsigned char>(seen[i]) > ',';
    count += is_blank & begins_text;
  }
  return count;
}

}  // namespace talven
