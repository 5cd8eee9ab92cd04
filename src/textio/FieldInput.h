// Numbers read from fields of fixed width. Blanks in a field are passed over; a blank field is zero.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace talven {

/// `Iw` in. Nothing if the field holds no whole number or one that no int32 holds.
std::optional<std::int32_t> ReadI(std::string_view field);

/// `Fw.d` in, rounded once to the stored real. A field without a point has its last `decimals` digits as decimals; an
/// exponent may follow (`1.5E3`, `1.5D3`, `1.5+3`). Nothing if it holds no number or one beyond the range of a stored
/// real.
std::optional<float> ReadF(std::string_view field, int decimals);

/// A number written with or without point and exponent and with no blank in it, as 32-bit or 64-bit real. Words such
/// as `inf` and `nan` are no numbers. A value too small for the type is zero.
template <typename Real>
std::optional<Real> ReadReal(std::string_view token);
extern template std::optional<float> ReadReal<float>(std::string_view);
extern template std::optional<double> ReadReal<double>(std::string_view);

}  // namespace talven
