// What makes a structure model doubtful without making it useless.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "crystal/CrystalModel.h"

namespace talven {

struct ModelFault {
  std::string text;
  /// It lies in the contents that are told, not in cell and atoms.
  bool is_of_unit = false;
};

/// Compares the model with itself: the contents told by UNIT, one number for each scatterer (none: not looked at),
/// with the atoms; the cell with its operators; atoms, symmetry copies included, with each other.
std::vector<ModelFault> CheckModel(const CrystalModel& model, std::span<const double> unit);

}  // namespace talven
