// The CELL line of a SHELX INS file.
//
//     CELL 1.54056 7.2 9.8 11.3 90 101.5 90       wavelength, a, b, c in Angstrom, alpha, beta, gamma in degrees
#pragma once

#include <optional>

#include "crystal/UnitCell.h"
#include "textio/TextInput.h"

namespace talven {

/// Reads on to the first line with CELL in columns 1 to 4, upper case. Nothing if the text ends without one. Throws
/// FatalIoError if it has fewer than seven numbers.
std::optional<UnitCell> ReadCellLine(TextInput& ins);

}  // namespace talven
