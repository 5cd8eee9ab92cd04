// The structure model in a SHELX instruction file, INS or RES: the SHELX-97 manual, as later releases extend it.
#pragma once

#include "crystal/CrystalModel.h"
#include "textio/TextInput.h"

namespace talven {

/// Reads a whole instruction file from its first line: cell, symmetry, scatterers with f' and f'' at the wavelength of
/// CELL, and atoms with all coded numbers worked out. Throws FatalIoError for what can't be a model: no CELL line, a
/// cell without volume, an unknown element, an atom row or coded number that can't be read. A file without atoms is no
/// error.
ModelReading ReadModel(TextInput& ins);

}  // namespace talven
