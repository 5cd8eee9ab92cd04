// The structure in a CIF.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "crystal/CrystalModel.h"
#include "textio/TextInput.h"

namespace talven {

struct CifStructure {
  CrystalModel model;
  std::vector<std::string> notices;
  /// Measured reflections in the file as rows of an HKL file, `3I4,2F8.2`; empty where it holds none.
  std::string reflections;
};

/// Reads the first data block that has a cell and atoms, else the first with a cell: cell, operators, atoms with their
/// displacements, the wavelength where it is told (f' and f'' are then set), and embedded reflections
/// (`_shelx_hkl_file`, or a `_refln_` loop). Throws FatalIoError for what is no CIF, has no cell, or names an unknown
/// element. A block without atoms is no error.
CifStructure ModelFromCif(const TextInput& cif);

/// True if a name as `_cell_length_a`, given in lower case, stands anywhere in a CIF in a spelling that ModelFromCif
/// takes. Nothing is parsed.
bool MentionsTag(std::string_view cif, std::string_view tag);

}  // namespace talven
