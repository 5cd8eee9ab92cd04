// Fields of fixed width: Fw.d, Iw, Ew.d and G15.6, written without regard to any locale.
//
// Numbers are right aligned and rounded to nearest, exact halves away from zero. A value too wide for its field gives
// w asterisks; the zero before the point is left out where only that makes it fit.
#pragma once

#include <cstdint>
#include <span>

namespace talven {

/// `Iw`: a whole number. The span is the field.
void FormatI(std::span<char> field, std::int64_t value);

/// `Fw.d`: with no decimals the whole number is followed by a point. Not-a-number is `NaN`; an infinite value is
/// `Infinity`, or `Inf` where that does not fit. A negative value that rounds to zero keeps its sign.
void FormatF(std::span<char> field, double value, int decimals);

/// `Ew.d` as `0.dddE+ee`, with a two-digit exponent.
void FormatE(std::span<char> field, double value, int decimals);

/// `G15.6`: six significant digits. Zero and 0.1 <= |value| < 1000000 stand in fixed notation in the first 11 columns,
/// with four blanks after it; other values as `E15.6`.
void FormatG(std::span<char, 15> field, double value);

}  // namespace talven
