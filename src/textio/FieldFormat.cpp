#include "textio/FieldFormat.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <optional>
#include <string_view>

#include "textio/ShortFields.h"

namespace talven {
namespace {

constexpr std::array<double, 18> kPowersOfTen = {1e0, 1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,
                                                 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17};

void Asterisks(std::span<char> field) {
  std::fill(field.begin(), field.end(), '*');
}

void RightAlign(std::span<char> field, std::string_view text) {
  if (text.size() > field.size()) return Asterisks(field);
  const std::size_t blanks = field.size() - text.size();
  std::fill_n(field.begin(), blanks, ' ');
  std::copy(text.begin(), text.end(), field.begin() + static_cast<std::ptrdiff_t>(blanks));
}

/// Writes not-a-number and infinite values; false for any other.
bool FormatSpecial(std::span<char> field, double value) {
  if (std::isfinite(value)) return false;
  if (std::isnan(value)) {
    RightAlign(field, "NaN");
    return true;
  }
  const std::string_view longest = value < 0.0 ? "-Infinity" : "Infinity";
  RightAlign(field, longest.size() <= field.size() ? longest : longest.substr(0, longest.size() - 5));
  return true;
}

/// magnitude * 10^decimals rounded to a whole number, exact halves up; nothing if that passes 17 digits.
std::optional<std::uint64_t> ScaleAndRound(double magnitude, int decimals) {
  if (decimals > 12 || magnitude >= 1e17) return std::nullopt;
  if (static_cast<double>(static_cast<float>(magnitude)) == magnitude) {
    // 24 bits of a stored real times 10^12 at the most (29 bits beside its power of two): the product is exact.
    const double scaled = magnitude * kPowersOfTen[static_cast<std::size_t>(decimals)];
    if (scaled >= 1e17) return std::nullopt;
    const auto whole = static_cast<std::int64_t>(scaled);
    return static_cast<std::uint64_t>(scaled - static_cast<double>(whole) >= 0.5 ? whole + 1 : whole);
  }
  // Thirty more decimals tell an exact half from its neighbours: no other 64-bit real lies that close to one.
  std::array<char, 80> digits{};
  const auto end =
      std::to_chars(digits.data(), digits.data() + digits.size(), magnitude, std::chars_format::fixed, decimals + 30);
  const char* const cut = end.ptr - 30;
  std::uint64_t whole = 0;
  for (const char* p = digits.data(); p != cut; ++p) {
    if (*p == '.') continue;
    if (whole >= 10'000'000'000'000'000) return std::nullopt;
    whole = whole * 10 + static_cast<std::uint64_t>(*p - '0');
  }
  return *cut >= '5' ? whole + 1 : whole;
}

/// Blanks a field; the usual widths by two stores that may overlap.
void Blank(std::span<char> field) {
  constexpr char kBlanks[] = "        ";
  char* const begin = field.data();
  char* const end = begin + field.size();
  if (field.size() >= 8 && field.size() <= 16) {
    std::memcpy(begin, kBlanks, 8);
    std::memcpy(end - 8, kBlanks, 8);
  } else if (field.size() >= 4 && field.size() < 8) {
    std::memcpy(begin, kBlanks, 4);
    std::memcpy(end - 4, kBlanks, 4);
  } else {
    std::fill(begin, end, ' ');
  }
}

constexpr std::array<std::uint64_t, 20> kWholePowersOfTen = [] {
  std::array<std::uint64_t, 20> powers{1};
  for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
  return powers;
}();

/// How many digits a whole number has; none for 0.
std::size_t CountDigits(std::uint64_t whole) {
  // Bits times log10(2) are the digits, or one too many.
  const auto digits = static_cast<std::size_t>(std::bit_width(whole)) * 1233 >> 12;
  return digits + (whole >= kWholePowersOfTen[digits] ? 1 : 0);
}

constexpr std::array<char, 200> kPairs = [] {
  std::array<char, 200> pairs{};
  for (std::size_t i = 0; i < 100; ++i) {
    pairs[2 * i] = static_cast<char>('0' + i / 10);
    pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return pairs;
}();

/// Writes the last digits of a whole number ahead of `end`, as many as are asked for, and takes them from it.
char* PutDigits(char* end, std::uint64_t& whole, std::size_t count) {
  for (; count >= 2; count -= 2, whole /= 100) std::memcpy(end -= 2, &kPairs[2 * (whole % 100)], 2);
  if (count == 1) {
    *--end = static_cast<char>('0' + whole % 10);
    whole /= 10;
  }
  return end;
}

/// Writes sign, digits and point of a number whose digits are those of `whole` with the point before the last
/// `decimals` of them.
void PlaceFixed(std::span<char> field, bool negative, std::uint64_t whole, int decimals) {
  const auto fraction = static_cast<std::size_t>(decimals);
  const std::size_t digits = CountDigits(whole);
  const std::size_t ahead = digits > fraction ? digits - fraction : 0;
  const std::size_t needed = ahead + fraction + (negative ? 2 : 1);
  if (needed > field.size() || (ahead + fraction == 0 && needed == field.size())) return Asterisks(field);
  Blank(field);
  char* p = PutDigits(field.data() + field.size(), whole, fraction);
  *--p = '.';
  if (ahead > 0) {
    p = PutDigits(p, whole, ahead);
  } else if (needed < field.size()) {
    *--p = '0';
  }
  if (negative) *--p = '-';
}

/// Six significant digits in fixed notation: how many of them are decimals, for 0.1 <= magnitude < 1000000.
int DecimalsOfSix(double magnitude) {
  int decimals = 6;
  while (decimals > 0 && magnitude >= kPowersOfTen[static_cast<std::size_t>(6 - decimals)]) --decimals;
  return decimals;
}

}  // namespace

void FormatI(std::span<char> field, std::int64_t value) {
  const auto bits = static_cast<std::uint64_t>(value);
  std::uint64_t magnitude = value < 0 ? 0 - bits : bits;
  const std::size_t digits = magnitude == 0 ? 1 : CountDigits(magnitude);
  if (digits + (value < 0 ? 1 : 0) > field.size()) return Asterisks(field);
  Blank(field);
  char* p = PutDigits(field.data() + field.size(), magnitude, digits);
  if (value < 0) *--p = '-';
}

void FormatF(std::span<char> field, double value, int decimals) {
  if (FormatSpecial(field, value)) return;
  const auto whole = ScaleAndRound(std::fabs(value), decimals);
  if (!whole) return Asterisks(field);
  PlaceFixed(field, std::signbit(value), *whole, decimals);
}

void FormatE(std::span<char> field, double value, int decimals) {
  if (FormatSpecial(field, value)) return;
  std::uint64_t mantissa = 0;
  int exponent = 0;
  if (value != 0.0) {
    // 120 digits hold every stored real in full, so that an exact half is seen as one.
    std::array<char, 160> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), std::fabs(value),
                                   std::chars_format::scientific, 120);
    const char* const mark = std::find(digits.data(), end.ptr, 'e');
    std::from_chars(mark[1] == '+' ? mark + 2 : mark + 1, end.ptr, exponent);
    ++exponent;
    mantissa = static_cast<std::uint64_t>(digits[0] - '0');
    for (int i = 1; i < decimals; ++i)
      mantissa = mantissa * 10 + static_cast<std::uint64_t>(digits[static_cast<std::size_t>(i) + 1] - '0');
    if (digits[static_cast<std::size_t>(decimals) + 1] >= '5') ++mantissa;
    if (mantissa == static_cast<std::uint64_t>(kPowersOfTen[static_cast<std::size_t>(decimals)])) {
      mantissa /= 10;
      ++exponent;
    }
  }
  if (exponent > 99 || exponent < -99 || field.size() < 5) return Asterisks(field);
  const auto tail = field.last(4);
  PlaceFixed(field.first(field.size() - 4), std::signbit(value), mantissa, decimals);
  if (field[0] == '*') return Asterisks(field);
  tail[0] = 'E';
  tail[1] = exponent < 0 ? '-' : '+';
  tail[2] = static_cast<char>('0' + std::abs(exponent) / 10);
  tail[3] = static_cast<char>('0' + std::abs(exponent) % 10);
}

void FormatG(std::span<char, 15> field, double value) {
  const double magnitude = std::fabs(value);
  const auto number = field.first<11>();
  const auto blanks = field.last<4>();
  if (magnitude == 0.0) {
    FormatF(number, value, 5);
    std::fill(blanks.begin(), blanks.end(), ' ');
    return;
  }
  if (!(magnitude >= 0.1 && magnitude < 1e6)) return FormatE(field, value, 6);
  int decimals = DecimalsOfSix(magnitude);
  if (ScaleAndRound(magnitude, decimals) == 1'000'000U) {
    // Rounding gave a seventh digit: it is again six digits, one place further left.
    if (decimals == 0) return FormatE(field, value, 6);
    --decimals;
  }
  if (!PlaceShort(number, value, decimals)) FormatF(number, value, decimals);
  std::fill(blanks.begin(), blanks.end(), ' ');
}

}  // namespace talven
