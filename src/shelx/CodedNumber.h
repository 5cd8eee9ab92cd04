// Coded numbers of SHELX files: a fixed value, or one tied to a free variable.
#pragma once

#include <optional>
#include <span>

namespace talven {

/// The value of v = 10 m + p with |p| < 5: m = 0 the value itself; m = 1 or -1 p, held fixed; m of 2 and more p times
/// free variable m; m of -2 and less p times (free variable |m| minus 1). `free_variables` are those of FVAR, the
/// first being the overall scale. Nothing if there is no such variable.
std::optional<double> DecodeNumber(double coded, std::span<const double> free_variables);

}  // namespace talven
