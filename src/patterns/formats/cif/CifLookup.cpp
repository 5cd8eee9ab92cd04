#include "patterns/formats/cif/CifLookup.h"

#include <cmath>

#include "patterns/formats/FormatText.h"
#include "textio/FieldInput.h"
#include "textio/LetterCase.h"

namespace talven {
namespace {

bool IsName(std::string_view tag, std::string_view name) {
  if (tag.size() != name.size()) return false;
  for (std::size_t i = 0; i < tag.size(); ++i) {
    const char c = LowerCase(tag[i]);
    if ((c == '.' ? '_' : c) != name[i]) return false;
  }
  return true;
}

}  // namespace

std::optional<CifNumber> ReadCifNumber(std::string_view text) {
  const std::size_t bracket = text.find('(');
  const std::string_view digits = text.substr(0, bracket);
  const auto value = ReadReal<double>(digits);
  if (!value) return std::nullopt;
  if (bracket == std::string_view::npos || !text.ends_with(')')) return CifNumber{.value = *value, .su = {}};
  const auto su = ReadReal<double>(text.substr(bracket + 1, text.size() - bracket - 2));
  if (!su) return CifNumber{.value = *value, .su = {}};
  const std::size_t point = digits.find('.');
  const auto decimals = static_cast<int>(point == std::string_view::npos ? 0 : digits.size() - point - 1);
  return CifNumber{.value = *value, .su = *su * std::pow(10.0, -decimals)};
}

std::optional<CifColumn> FindCifColumn(const RawCifBlock& block, std::string_view name) {
  for (const RawCifLoop& loop : block.loops)
    for (std::size_t i = 0; i < loop.tags.size(); ++i)
      if (IsName(loop.tags[i], name)) return CifColumn{.loop = &loop, .index = i};
  return std::nullopt;
}

std::optional<double> FindCifNumber(const RawCifBlock& block, std::string_view name) {
  std::optional<CifNumber> number;
  for (const auto& [tag, value] : block.items)
    if (IsName(tag, name)) number = ReadCifNumber(value);
  const auto column = FindCifColumn(block, name);
  if (!number && column && column->Size() > 0) number = ReadCifNumber(column->At(0));
  return number ? std::optional(number->value) : std::nullopt;
}

}  // namespace talven
