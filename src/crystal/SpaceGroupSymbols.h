// Space groups by their symbols.
#pragma once

#include <string>
#include <vector>

#include "crystal/Lattice.h"
#include "crystal/Symmetry.h"

namespace talven {

/// What a file tells of its space group; empty texts and 0 for what it does not.
struct SpaceGroupNames {
  std::string hall;
  std::string hermann_mauguin;
  /// Of International Tables, 1 to 230.
  int number = 0;
};

struct SpaceGroupSetting {
  std::vector<SymmetryOperator> operators;
  /// The setting that was taken where the names leave it open: the origin, or with a number only the axes too.
  std::string assumed;
};

/// The operators of a space group by the first of its names that is known: Hall's symbol, Hermann and Mauguin's, the
/// number. `P2(1)/n`, `P 2_1/n`, `R -3 H`, `F d 3 m` and `F d -3 m Z` are understood too; whether axes are hexagonal or
/// rhombohedral, the cell decides where the symbol does not. No operators for names that are not known, and in a
/// program that was built without gemmi.
SpaceGroupSetting OperatorsBySymbol(const SpaceGroupNames& names, const Lattice& lattice);

}  // namespace talven
