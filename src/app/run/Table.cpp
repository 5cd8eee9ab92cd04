#include "app/run/Table.h"

#include <array>
#include <charconv>
#include <cmath>

#include "textio/FixedText.h"
#include "textio/Record.h"

namespace talven {
namespace {

template <typename... Format>
std::string Digits(Format... format) {
  std::array<char, 400> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), format...).ptr;
  return {buffer.data(), end};
}

/// Columns that hold any number of a table.
constexpr std::size_t kWidest = 60;

constexpr std::string_view kHexDigits = "0123456789abcdef";

/// Length of the well-formed UTF-8 sequence that a text begins with; 0 if it begins with none.
std::size_t SequenceLength(std::string_view text) {
  const auto byte = [text](std::size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U; };
  const unsigned first = byte(0);
  if (first < 0x80) return 1;
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4) return 0;
  for (std::size_t i = 1; i < length; ++i)
    if ((byte(i) & 0xC0U) != 0x80) return 0;
  const unsigned second = byte(1);
  const bool is_overlong = (first == 0xE0 && second < 0xA0) || (first == 0xF0 && second < 0x90);
  const bool is_beyond = (first == 0xED && second >= 0xA0) || (first == 0xF4 && second >= 0x90);
  return is_overlong || is_beyond ? 0 : length;
}

/// A JSON string. Bytes that are no UTF-8 stand as the replacement character.
std::string JsonString(std::string_view text) {
  std::string quoted = "\"";
  while (!text.empty()) {
    const std::size_t length = SequenceLength(text);
    const auto c = static_cast<unsigned char>(text.front());
    if (length == 0) {
      quoted += "\xEF\xBF\xBD";
    } else if (c == '"' || c == '\\') {
      quoted.append("\\").append(text.substr(0, 1));
    } else if (c < 0x20) {
      quoted.append("\\u00").append({kHexDigits[c >> 4U], kHexDigits[c & 15U]});
    } else {
      quoted += text.substr(0, length);
    }
    text.remove_prefix(length == 0 ? 1 : length);
  }
  return quoted + "\"";
}

}  // namespace

Cell Cell::Integer(std::int64_t value) {
  return {Digits(value), Kind::kNumber};
}
Cell Cell::Real(double value) {
  return std::isfinite(value) ? Cell(Digits(value), Kind::kNumber) : Cell();
}
Cell Cell::Real(float value) {
  return std::isfinite(value) ? Cell(Digits(value), Kind::kNumber) : Cell();
}
Cell Cell::Fixed(double value, int decimals) {
  if (!std::isfinite(value)) return {};
  return {std::string(Trim(Record().F(value, kWidest, decimals).Text())), Kind::kNumber};
}

std::string Cell::TabText() const {
  return OneLine(text_);
}

std::string Cell::JsonText() const {
  if (kind_ == Kind::kNothing) return "null";
  return kind_ == Kind::kText ? JsonString(text_) : text_;
}

std::string HeadLine(const ColumnNames& columns, TableStyle style) {
  std::string line;
  if (style == TableStyle::kJson) return line;
  for (const std::string& column : columns) line.append(line.empty() ? "" : "\t").append(column);
  return line + "\n";
}

std::string RowLine(const ColumnNames& columns, const Row& row, TableStyle style, std::string_view error) {
  const bool is_json = style == TableStyle::kJson;
  std::string line = is_json ? "{" : "";
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const Cell cell = i < row.size() ? row[i] : Cell();
    if (i > 0) line += is_json ? ", " : "\t";
    line += is_json ? JsonString(columns[i]) + ": " + cell.JsonText() : cell.TabText();
  }
  if (is_json && !error.empty()) line += ", \"error\": " + JsonString(error);
  return line + (is_json ? "}\n" : "\n");
}

double Shortest(float value) {
  const std::string digits = Digits(value);
  double shortest = value;
  std::from_chars(digits.data(), digits.data() + digits.size(), shortest);
  return shortest;
}

std::string OneLine(std::string_view text) {
  std::string line;
  for (const char c : text) {
    const auto code = static_cast<unsigned char>(c);
    if (c == '\\') {
      line += "\\\\";
    } else if (c == '\n') {
      line += "\\n";
    } else if (c == '\t') {
      line += "\\t";
    } else if (code < 0x20 || code == 0x7F) {
      line.append("\\x").append({kHexDigits[code >> 4U], kHexDigits[code & 15U]});
    } else {
      line += c;
    }
  }
  return line;
}

}  // namespace talven
