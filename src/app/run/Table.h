// The rows that a command puts on standard output: tab separated after a head line, or as JSON lines.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace talven {

/// One value of a row: a text, a number, or nothing.
class Cell {
 public:
  Cell() = default;
  static Cell Text(std::string text) { return {std::move(text), Kind::kText}; }
  static Cell Integer(std::int64_t value);
  /// The shortest digits that give the same number again. Not-a-number and infinity are nothing.
  static Cell Real(double value);
  static Cell Real(float value);
  /// With a fixed number of decimals, rounded as in a field of a file.
  static Cell Fixed(double value, int decimals);
  template <typename Number>
  static Cell Optional(const std::optional<Number>& value) {
    return value ? Real(*value) : Cell();
  }

  /// As it stands in a tab-separated line: line feed, tab and backslash as `\n`, `\t` and `\\`, nothing as nothing.
  std::string TabText() const;
  /// As it stands in a JSON line.
  std::string JsonText() const;

 private:
  enum class Kind { kNothing, kText, kNumber };
  Cell(std::string text, Kind kind) : text_(std::move(text)), kind_(kind) {}

  std::string text_;
  Kind kind_ = Kind::kNothing;
};

using ColumnNames = std::vector<std::string>;
using Row = std::vector<Cell>;

enum class TableStyle { kTabs, kJson };

/// The head line with its end; nothing for JSON.
std::string HeadLine(const ColumnNames& columns, TableStyle style);
/// A row with its end. Cells that a row lacks at its end are nothing; `error`, where there is one, is told in JSON.
std::string RowLine(const ColumnNames& columns, const Row& row, TableStyle style, std::string_view error = {});

/// The real whose shortest digits are those of a stored one: 1.54 for the 32-bit 1.54.
double Shortest(float value);

/// A text on one line: control characters as in TabText.
std::string OneLine(std::string_view text);

}  // namespace talven
