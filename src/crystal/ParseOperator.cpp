#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <string>

#include "crystal/Symmetry.h"
#include "textio/LetterCase.h"

namespace talven {
namespace {

constexpr double kSnap = 0.01;

/// An unsigned number with or without a point, taken off the front of a text.
std::optional<double> NextNumber(std::string_view& text) {
  double value = 0.0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
  if (result.ec != std::errc{} || !std::isfinite(value)) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
  return value;
}

/// A number or fraction in parts of 24.
std::optional<int> NextParts(std::string_view& text) {
  auto value = NextNumber(text);
  if (!value) return std::nullopt;
  if (text.starts_with('/')) {
    text.remove_prefix(1);
    const auto divisor = NextNumber(text);
    if (!divisor || *divisor == 0.0) return std::nullopt;
    *value /= *divisor;
  }
  if (!(std::fabs(*value) < 100.0)) return std::nullopt;
  const double parts = std::round(*value * SymmetryOperator::kParts);
  if (std::fabs(*value - parts / SymmetryOperator::kParts) > kSnap) return std::nullopt;
  return static_cast<int>(parts);
}

/// One component without blanks, as `-x+y+1/2`, into a row of the rotation and its translation.
bool ParseComponent(std::string_view text, std::array<int, 3>& row, int& translation) {
  if (text.empty()) return false;
  row = {0, 0, 0};
  translation = 0;
  bool is_first = true;
  while (!text.empty()) {
    int sign = 1;
    if (text.front() == '+' || text.front() == '-') {
      sign = text.front() == '-' ? -1 : 1;
      text.remove_prefix(1);
    } else if (!is_first) {
      return false;
    }
    is_first = false;
    if (text.empty()) return false;
    const char letter = LowerCase(text.front());
    if (letter >= 'x' && letter <= 'z') {
      row[static_cast<std::size_t>(letter - 'x')] += sign;
      text.remove_prefix(1);
    } else if (const auto parts = NextParts(text)) {
      translation += sign * *parts;
    } else {
      return false;
    }
  }
  const int wrapped = translation % SymmetryOperator::kParts;
  translation = wrapped < 0 ? wrapped + SymmetryOperator::kParts : wrapped;
  return true;
}

int Determinant(const SymmetryOperator::Rotation& r) {
  return r[0][0] * (r[1][1] * r[2][2] - r[1][2] * r[2][1]) - r[0][1] * (r[1][0] * r[2][2] - r[1][2] * r[2][0]) +
         r[0][2] * (r[1][0] * r[2][1] - r[1][1] * r[2][0]);
}

}  // namespace

std::optional<SymmetryOperator> ParseOperator(std::string_view text) {
  std::string compact;
  std::copy_if(text.begin(), text.end(), std::back_inserter(compact), [](char c) { return c != ' ' && c != '\t'; });
  std::string_view rest = compact;
  SymmetryOperator result;
  for (std::size_t i = 0; i < 3; ++i) {
    const std::size_t end = i < 2 ? rest.find(',') : rest.size();
    if (end == std::string_view::npos) return std::nullopt;
    if (!ParseComponent(rest.substr(0, end), result.rotation[i], result.translation[i])) return std::nullopt;
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  for (const auto& row : result.rotation)
    for (const int entry : row)
      if (std::abs(entry) > 1) return std::nullopt;
  if (std::abs(Determinant(result.rotation)) != 1) return std::nullopt;
  return result;
}

}  // namespace talven
