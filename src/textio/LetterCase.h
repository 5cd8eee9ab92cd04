// Upper and lower case of ASCII letters; every other character is as it is.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace talven {

constexpr char UpperCase(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}

constexpr char LowerCase(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

constexpr bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, [](char x, char y) { return LowerCase(x) == LowerCase(y); });
}

constexpr bool StartsIgnoringCase(std::string_view text, std::string_view prefix) {
  return EqualIgnoringCase(text.substr(0, prefix.size()), prefix);
}

inline std::string ToUpper(std::string_view text) {
  std::string upper(text);
  for (char& c : upper) c = UpperCase(c);
  return upper;
}

inline std::string ToLower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = LowerCase(c);
  return lower;
}

}  // namespace talven
