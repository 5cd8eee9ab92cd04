// Looking things up in a data block of a CIF by names of any case, with "." or "_" inside.
#pragma once

#include <optional>
#include <string_view>

#include "patterns/formats/cif/ParseCif.h"

namespace talven {

/// A value with the standard uncertainty that stands in brackets after it: 5540(160), 0.125(3).
struct CifNumber {
  double value = 0.0;
  std::optional<double> su;
};
/// Nothing for what is no number, "." and "?" among it.
std::optional<CifNumber> ReadCifNumber(std::string_view text);

/// A column of a loop. Pointers hold as long as the document.
struct CifColumn {
  const RawCifLoop* loop = nullptr;
  std::size_t index = 0;

  std::size_t Size() const { return loop->values.size() / loop->tags.size(); }
  std::string_view At(std::size_t row) const { return loop->values[row * loop->tags.size() + index]; }
};

/// The first column of a name, lower case with "_".
std::optional<CifColumn> FindCifColumn(const RawCifBlock& block, std::string_view name);
/// The value of a name, or the first one where it heads a column; nothing if that is no number.
std::optional<double> FindCifNumber(const RawCifBlock& block, std::string_view name);

}  // namespace talven
