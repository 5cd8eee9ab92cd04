#include "textio/List4Row.h"

#include "textio/FieldInput.h"
#include "textio/FixedText.h"

namespace talven {
namespace {

/// A field of the wide layout; a blank one is none.
std::string_view Field(std::string_view line, std::size_t first, std::size_t last) {
  const std::string_view field = Trim(Columns(line, first, last));
  return field.empty() ? "blank" : field;
}

constexpr bool IsStatus(char c) {
  return c > ' ' && !(c >= '0' && c <= '9') && c != '.';
}

}  // namespace

bool HasNarrowStatus(std::string_view line) {
  return ColumnAt(line, 48) == 'o';
}

std::optional<List4Row> ReadWideList4Row(std::string_view line) {
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

}  // namespace talven
