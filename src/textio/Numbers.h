// Storing and rounding of numbers. Stored reals are 32 bits wide, expressions 64; every rounding goes through here.
#pragma once

#include <cstdint>
#include <limits>

namespace talven {

/// Rounds the value of an expression to the 32-bit real that is stored.
constexpr float Store(double value) {
  return static_cast<float>(value);
}

/// Drops the fraction. A value that no int32 holds gives the nearest int32, not-a-number gives 0.
constexpr std::int32_t Truncate(double value) {
  if (value != value) return 0;
  if (value >= static_cast<double>(std::numeric_limits<std::int32_t>::max()))
    return std::numeric_limits<std::int32_t>::max();
  if (value <= static_cast<double>(std::numeric_limits<std::int32_t>::min()))
    return std::numeric_limits<std::int32_t>::min();
  return static_cast<std::int32_t>(value);
}

/// The nearest whole number, halves away from zero: adds 0.5 with the value's sign and drops the fraction.
constexpr std::int32_t NearestWhole(double value) {
  return Truncate(value < 0.0 ? value - 0.5 : value + 0.5);
}

}  // namespace talven
