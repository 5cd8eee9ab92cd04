#include "textio/FieldInput.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstring>
#include <limits>
#include <string>

namespace talven {
namespace {

constexpr bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

std::string WithoutBlanks(std::string_view field) {
  std::string text;
  for (const char c : field)
    if (c != ' ') text += c;
  return text;
}

/// The parts of a written number. `mantissa` holds its digits and point, `exponent` the digits after the letter.
struct WrittenNumber {
  bool negative = false;
  std::string_view mantissa;
  bool has_point = false;
  int exponent = 0;
};

/// Reads the exponent part, which begins at a letter or a sign. Beyond 9999 it stays there: that decides the value.
std::optional<int> ReadExponent(std::string_view text) {
  if (std::string_view("EeDdQq").find(text.front()) != std::string_view::npos) text.remove_prefix(1);
  bool negative = false;
  if (!text.empty() && (text.front() == '+' || text.front() == '-')) {
    negative = text.front() == '-';
    text.remove_prefix(1);
  }
  if (text.empty()) return std::nullopt;
  int exponent = 0;
  for (const char c : text) {
    if (!IsDigit(c)) return std::nullopt;
    if (exponent < 10000) exponent = exponent * 10 + (c - '0');
  }
  return negative ? -exponent : exponent;
}

std::optional<WrittenNumber> SplitNumber(std::string_view text) {
  WrittenNumber number;
  if (!text.empty() && (text.front() == '+' || text.front() == '-')) {
    number.negative = text.front() == '-';
    text.remove_prefix(1);
  }
  std::size_t length = 0;
  std::size_t digits = 0;
  for (; length < text.size(); ++length) {
    if (text[length] == '.') {
      if (number.has_point) return std::nullopt;
      number.has_point = true;
    } else if (IsDigit(text[length])) {
      ++digits;
    } else {
      break;
    }
  }
  if (digits == 0) return std::nullopt;
  number.mantissa = text.substr(0, length);
  if (length < text.size()) {
    const char c = text[length];
    if (c != '+' && c != '-' && std::string_view("EeDdQq").find(c) == std::string_view::npos) return std::nullopt;
    const auto exponent = ReadExponent(text.substr(length));
    if (!exponent) return std::nullopt;
    number.exponent = *exponent;
  }
  return number;
}

/// The conversion proper, of text in the plain notation of <charconv>.
template <typename Real>
std::optional<Real> Convert(std::string_view text) {
  Real value{};
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ptr != text.data() + text.size()) return std::nullopt;
  if (result.ec == std::errc()) return value;
  if (result.ec != std::errc::result_out_of_range) return std::nullopt;
  // Too small a magnitude is zero; too large a one is no stored real. The order of the first digit tells which.
  const auto number = SplitNumber(text);
  if (!number) return std::nullopt;
  const auto first_digit = static_cast<int>(number->mantissa.find_first_not_of("0."));
  const auto point = static_cast<int>(std::min(number->mantissa.find('.'), number->mantissa.size()));
  if (number->exponent + point - first_digit > 0) return std::nullopt;
  return number->negative ? -Real{} : Real{};
}

template <typename Real>
std::optional<Real> ReadScaled(std::string_view text, int implied_decimals) {
  const auto number = SplitNumber(text);
  if (!number) return std::nullopt;
  std::string plain = number->negative ? "-" : "";
  plain += number->mantissa;
  plain += 'e';
  plain += std::to_string(number->exponent - (number->has_point ? 0 : implied_decimals));
  return Convert<Real>(plain);
}

/// True for a number that <charconv> reads as it stands.
bool IsPlain(std::string_view text) {
  if (!text.empty() && text.front() == '-') text.remove_prefix(1);
  return !text.empty() && std::ranges::all_of(text, [](char c) { return IsDigit(c) || c == '.'; });
}

/// Passes over digits, which are added to a value, and gives where they end. Beyond nine the value is of no use.
const char* ReadDigits(const char* p, const char* end, std::uint32_t& value) {
  for (; p != end; ++p) {
    const std::uint32_t digit = static_cast<std::uint32_t>(*p) - '0';
    if (digit > 9) break;
    value = value * 10 + digit;
  }
  return p;
}

/// A short number without exponent, which has to have a point if that is asked for; nothing for any other. Up to 2^24
/// its digits are exact in a stored real, and so is a power of ten up to 10^10: one division then rounds as well as
/// <charconv> does, in less time.
std::optional<float> ReadShort(std::string_view text, bool needs_point = false) {
  constexpr std::array<float, 10> kPowersOfTen = {1e0F, 1e1F, 1e2F, 1e3F, 1e4F, 1e5F, 1e6F, 1e7F, 1e8F, 1e9F};
  const char* p = text.data();
  const char* const end = p + text.size();
  const bool negative = p != end && *p == '-';
  if (negative) ++p;
  const char* const first = p;
  std::uint32_t digits = 0;
  p = ReadDigits(p, end, digits);
  auto count = p - first;
  std::ptrdiff_t decimals = 0;
  if (p != end && *p == '.') {
    const char* const point = p;
    p = ReadDigits(p + 1, end, digits);
    decimals = p - point - 1;
    count += decimals;
  } else if (needs_point) {
    return std::nullopt;
  }
  if (p != end || count == 0 || count > 9 || digits > 1U << 24) return std::nullopt;
  const float magnitude = static_cast<float>(digits) / kPowersOfTen[static_cast<std::size_t>(decimals)];
  return negative ? -magnitude : magnitude;
}

/// The characters of a field at once, the first in the lowest byte.
template <typename Word>
Word Load(const char* characters) {
  Word word = 0;
  std::memcpy(&word, characters, sizeof word);
  return word;
}

/// Turns characters into digits, a byte each: blanks ahead of the first digit and a minus sign between them and it
/// become 0. False for any other text.
template <typename Word>
bool MakeDigits(Word text, Word& digits, bool& negative) {
  constexpr Word kEach = static_cast<Word>(~Word{0}) / 0xFF;
  // Of the characters allowed the digits alone have this bit.
  const int ahead = std::countr_zero(text & kEach * 0x10) / 8 * 8;
  if (ahead == std::numeric_limits<Word>::digits) return false;
  const Word leading = (Word{1} << ahead) - 1;
  const Word not_blank = (text ^ kEach * ' ') & leading;
  negative = not_blank != 0;
  if (negative && not_blank != Word{' ' ^ '-'} << (ahead - 8)) return false;
  digits = (text ^ kEach * '0') & ~leading;
  return ((digits | (digits + kEach * (0x80 - 10))) & kEach * 0x80) == 0;
}

/// A whole number that stands at the right end of four columns; nothing for any other field.
std::optional<std::int32_t> ReadFourColumns(std::string_view field) {
  if (std::endian::native != std::endian::little || field.size() != 4) return std::nullopt;
  std::uint32_t digits = 0;
  bool negative = false;
  if (!MakeDigits(Load<std::uint32_t>(field.data()), digits, negative)) return std::nullopt;
  const std::uint32_t pairs = digits * 10 + (digits >> 8);
  const auto magnitude = static_cast<std::int32_t>((pairs & 0xFF) * 100 + (pairs >> 16 & 0xFF));
  return negative ? -magnitude : magnitude;
}

/// A number as `F8.2` or a wider field with two decimals shows it, of at most seven digits; nothing for any other
/// field.
std::optional<float> ReadTwoDecimals(std::string_view field) {
  constexpr std::size_t kSeen = 8;
  if (std::endian::native != std::endian::little || field.size() < kSeen || field[field.size() - 3] != '.')
    return std::nullopt;
  for (const char c : field.substr(0, field.size() - kSeen))
    if (c != ' ') return std::nullopt;
  const auto text = Load<std::uint64_t>(field.data() + field.size() - kSeen);
  // The point goes, and the five characters ahead of it move into its place.
  const std::uint64_t closed = (text & 0xFFFF'0000'0000'0000) | (text & 0xFF'FFFF'FFFF) << 8 | std::uint64_t{' '};
  std::uint64_t digits = 0;
  bool negative = false;
  if (!MakeDigits(closed, digits, negative)) return std::nullopt;
  const std::uint64_t pairs = (digits * 10 + (digits >> 8)) & 0x00FF'00FF'00FF'00FF;
  const std::uint64_t fours = (pairs * 100 + (pairs >> 16)) & 0x0000'FFFF'0000'FFFF;
  const auto whole = static_cast<std::int32_t>((fours & 0xFFFF) * 10'000 + (fours >> 32));
  const float magnitude = static_cast<float>(whole) / 100.0F;
  return negative ? -magnitude : magnitude;
}

/// A whole number of at most nine digits with blanks ahead of it alone; nothing for any other.
std::optional<std::int32_t> ReadShortWhole(std::string_view field) {
  const char* p = field.data();
  const char* const end = p + field.size();
  while (p != end && *p == ' ') ++p;
  const bool negative = p != end && *p == '-';
  if (negative) ++p;
  const char* const first = p;
  std::uint32_t digits = 0;
  p = ReadDigits(p, end, digits);
  if (p != end || p == first || p - first > 9) return std::nullopt;
  const auto magnitude = static_cast<std::int32_t>(digits);
  return negative ? -magnitude : magnitude;
}

}  // namespace

std::optional<std::int32_t> ReadI(std::string_view field) {
  if (const auto value = ReadFourColumns(field)) return value;
  if (const auto value = ReadShortWhole(field)) return value;
  bool negative = false;
  bool signed_field = false;
  int digits = 0;
  std::int64_t value = 0;
  for (const char c : field) {
    if (c == ' ') continue;
    if (IsDigit(c)) {
      ++digits;
      value = value * 10 + (c - '0');
      if (value > std::int64_t{1} << 31) return std::nullopt;
    } else if ((c == '-' || c == '+') && !signed_field && digits == 0) {
      signed_field = true;
      negative = c == '-';
    } else {
      return std::nullopt;
    }
  }
  if (signed_field && digits == 0) return std::nullopt;
  if (negative) value = -value;
  if (value == std::int64_t{1} << 31) return std::nullopt;
  return static_cast<std::int32_t>(value);
}

std::optional<float> ReadF(std::string_view field, int decimals) {
  if (const auto value = ReadTwoDecimals(field)) return value;
  std::string_view text = field;
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  if (text.empty()) return 0.0F;
  if (const auto value = ReadShort(text, decimals != 0)) return value;
  if ((decimals == 0 || text.find('.') != std::string_view::npos) && IsPlain(text)) return Convert<float>(text);
  return ReadScaled<float>(WithoutBlanks(text), decimals);
}

template <typename Real>
std::optional<Real> ReadReal(std::string_view token) {
  if constexpr (std::is_same_v<Real, float>)
    if (const auto value = ReadShort(token)) return value;
  if (IsPlain(token)) return Convert<Real>(token);
  return ReadScaled<Real>(token, 0);
}
template std::optional<float> ReadReal<float>(std::string_view);
template std::optional<double> ReadReal<double>(std::string_view);

}  // namespace talven
