// Text of a fixed length, padded with blanks, and the column helpers that all readers of fixed layouts share.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace talven {

/// The text without its trailing blanks.
constexpr std::string_view TrimRight(std::string_view text) {
  constexpr std::string_view kEightBlanks = "        ";
  while (text.ends_with(kEightBlanks)) text.remove_suffix(kEightBlanks.size());
  while (text.ends_with(' ')) text.remove_suffix(1);
  return text;
}

/// The text without leading and trailing blanks.
constexpr std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string_view() : TrimRight(text.substr(first));
}

/// Columns first to last of a line, counted from 1, both included. A short line gives what it has of them.
/// There are none if last is below first.
constexpr std::string_view Columns(std::string_view line, std::size_t first, std::size_t last) {
  return first > line.size() || first > last ? std::string_view() : line.substr(first - 1, last - first + 1);
}

/// The character at a column counted from 1; beyond the end of the line it is a blank.
constexpr char ColumnAt(std::string_view line, std::size_t column) {
  return column > line.size() ? ' ' : line[column - 1];
}

/// N characters, padded with blanks; what is longer is cut.
template <std::size_t N>
class FixedText {
 public:
  constexpr FixedText() { characters_.fill(' '); }
  constexpr FixedText(std::string_view text) { Assign(text); }  // NOLINT(google-explicit-constructor)
  constexpr FixedText& operator=(std::string_view text) {
    Assign(text);
    return *this;
  }

  /// All N characters, trailing blanks included.
  constexpr std::string_view View() const { return {characters_.data(), N}; }
  constexpr std::string_view Trimmed() const { return TrimRight(View()); }
  constexpr std::string_view First(std::size_t count) const { return View().substr(0, count); }

  /// The character at a column counted from 1.
  constexpr char& operator[](std::size_t column) { return characters_[column - 1]; }
  constexpr char operator[](std::size_t column) const { return characters_[column - 1]; }

  /// Blanks the first count columns, as is done to a keyword before the numbers after it are read.
  constexpr void BlankFirst(std::size_t count) {
    std::char_traits<char>::assign(characters_.data(), count < N ? count : N, ' ');
  }

  constexpr bool StartsWith(std::string_view keyword) const { return View().starts_with(keyword); }
  friend constexpr bool operator==(const FixedText&, const FixedText&) = default;

 private:
  constexpr void Assign(std::string_view text) {
    const std::size_t count = text.size() < N ? text.size() : N;
    // The text may be a part of these very characters, so it is moved before the rest is blanked.
    if (count > 0) std::char_traits<char>::move(characters_.data(), text.data(), count);
    std::char_traits<char>::assign(characters_.data() + count, N - count, ' ');
  }
  std::array<char, N> characters_;
};

/// The columns of a line that most readers look at.
using Text80 = FixedText<80>;

}  // namespace talven
