// The CELL line of a SHELX INS file.
#pragma once

#include "crystal/UnitCell.h"
#include "textio/InputFile.h"

namespace talven {

/// Reads on to the first line with CELL in columns 1 to 4, upper case, and takes wavelength, a, b, c, alpha, beta and
/// gamma from it; fills in the cosines and the volume. False if the file ends without such a line. Throws FatalIoError
/// if it has fewer than seven numbers.
bool ReadCellLine(InputFile& ins, UnitCell& cell);

}  // namespace talven
