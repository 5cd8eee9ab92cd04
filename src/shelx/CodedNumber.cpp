#include "shelx/CodedNumber.h"

#include <cmath>
#include <cstddef>

namespace talven {

std::optional<double> DecodeNumber(double coded, std::span<const double> free_variables) {
  const double tens = std::round(coded / 10.0);
  const double p = coded - 10.0 * tens;
  if (tens == 0.0) return coded;
  if (std::fabs(tens) == 1.0) return p;
  if (!(std::fabs(tens) <= static_cast<double>(free_variables.size()))) return std::nullopt;
  const double variable = free_variables[static_cast<std::size_t>(std::fabs(tens)) - 1];
  return tens > 0.0 ? p * variable : p * (variable - 1.0);
}

}  // namespace talven
