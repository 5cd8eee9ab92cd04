// Numbers in the words of a plot.
#pragma once

#include <array>
#include <charconv>
#include <string>

namespace talven {

/// With at most this many digits, a point, and no zeros at the end.
inline std::string NumberText(double value, int digits) {
  std::array<char, 40> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, digits).ptr;
  return {text.data(), end};
}

}  // namespace talven
