// Numbers of the usual widths, written a word at a time. FieldFormat writes all others; where both can, they write the
// same.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <span>

namespace talven {

/// The eight digits of a number below 10^8, a byte each, the first in the lowest. All are found at once, in lanes of
/// 32, 16 and 8 bits; the factors stand for divisions by 100 and 10, exact for what a lane can hold.
inline std::uint64_t EightDigits(std::uint32_t number) {
  const std::uint64_t fours = number / 10'000 | static_cast<std::uint64_t>(number % 10'000) << 32;
  const std::uint64_t hundreds = (fours * 10'486 >> 20) & 0x0000'007F'0000'007F;
  const std::uint64_t twos = hundreds | (fours - hundreds * 100) << 16;
  const std::uint64_t tens = (twos * 103 >> 10) & 0x000F'000F'000F'000F;
  return tens | (twos - tens * 10) << 8;
}

/// A whole number of up to four digits in a field of 4 columns, found as in EightDigits; false for any other.
inline bool PlaceFour(std::span<char> field, std::int64_t value) {
  if (std::endian::native != std::endian::little || field.size() != 4 || value > 9999 || value < -999) return false;
  const auto number = static_cast<std::uint32_t>(std::abs(value));
  const std::uint32_t hundreds = number * 10'486 >> 20;
  const std::uint32_t twos = hundreds | (number - hundreds * 100) << 16;
  const std::uint32_t tens = (twos * 103 >> 10) & 0x000F'000F;
  const std::uint32_t digits = tens | (twos - tens * 10) << 8;
  const int zeros = std::min(std::countr_zero(digits) / 8, 3);
  const std::uint32_t leading = (std::uint32_t{1} << 8 * zeros) - 1;
  const std::uint32_t text = digits + (0x3030'3030 ^ (leading & 0x1010'1010));
  std::memcpy(field.data(), &text, 4);
  if (value < 0) field[static_cast<std::size_t>(zeros - 1)] = '-';
  return true;
}

/// `Fw.d` in 8 to 16 columns of a number with these digits, the last `decimals` of them after the point: up to eight
/// of them, and up to seven decimals. False where that is not so, or where the number does not fit with a zero before
/// its point.
inline bool PlaceEight(std::span<char> field, bool negative, std::uint32_t whole, int decimals) {
  if (std::endian::native != std::endian::little) return false;
  if (field.size() < 8 || field.size() > 16 || decimals > 7 || whole > 99'999'999) return false;
  constexpr char kBlanks[] = "        ";
  const std::uint64_t digits = EightDigits(whole);
  const int zeros = std::min(std::countr_zero(digits) / 8, 7 - decimals);
  if (static_cast<std::size_t>(9 - zeros + (negative ? 1 : 0)) > field.size()) return false;
  // '0' and ' ' differ in one bit.
  const std::uint64_t leading = (std::uint64_t{1} << 8 * zeros) - 1;
  const std::uint64_t text = digits + (0x3030'3030'3030'3030 ^ (leading & 0x1010'1010'1010'1010));
  std::uint64_t ahead = text;
  char last = '.';
  if (decimals > 0) {
    const int point = 8 * (8 - decimals);
    const std::uint64_t below = text & ((std::uint64_t{1} << point) - 1);
    ahead = below | std::uint64_t{'.'} << point | (text - below) << 8;
    last = static_cast<char>(text >> 56);
  }
  // Nine characters stand at the right end; in a field of eight the first of them is a blank.
  char* const end = field.data() + field.size();
  if (field.size() == 8) {
    ahead = ahead >> 8 | static_cast<std::uint64_t>(last) << 56;
    std::memcpy(end - 8, &ahead, 8);
  } else {
    std::memcpy(field.data(), kBlanks, 8);
    std::memcpy(end - 9, &ahead, 8);
    end[-1] = last;
  }
  if (negative) *(end - 10 + zeros) = '-';
  return true;
}

/// `Fw.d` of a stored real by PlaceEight, if it can. The product of its 24 bits with 10^7 (17 bits beside its power of
/// two) is exact.
inline bool PlaceShort(std::span<char> field, double value, int decimals) {
  constexpr std::array<double, 8> kPowers = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7};
  const double magnitude = std::fabs(value);
  if (decimals > 7 || static_cast<double>(static_cast<float>(magnitude)) != magnitude) return false;
  const double scaled = magnitude * kPowers[static_cast<std::size_t>(decimals)];
  if (!(scaled < 99'999'999.0)) return false;
  const auto whole = static_cast<std::int32_t>(scaled);
  const std::int32_t rounded = scaled - whole >= 0.5 ? whole + 1 : whole;
  return PlaceEight(field, std::signbit(value), static_cast<std::uint32_t>(rounded), decimals);
}

}  // namespace talven
