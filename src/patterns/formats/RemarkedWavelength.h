// A wavelength that stands in a remark or a title: "lambda= 1.49400", "Calibrated wavelength = 0.414581".
#pragma once

#include <cstddef>
#include <string_view>

#include "patterns/formats/PatternFile.h"

namespace talven {

/// Takes the number after "lambda" or "wavelength" and "=" or ":" as wavelength of the pattern, with a notice of its
/// line, where the pattern has none yet and the number may be one (0.01 to 10 Angstrom).
void TakeRemarkedWavelength(std::string_view text, std::size_t line, PatternFile& file);

/// True for a number that may be a wavelength in Angstrom.
bool IsWavelength(double value);

}  // namespace talven
