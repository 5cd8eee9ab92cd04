// Calculated F squared of a model, and the reflections that a sphere holds.
#pragma once

#include <span>
#include <vector>

#include "crystal/CrystalModel.h"

namespace talven {

/// (|F(h)|^2 + |F(-h)|^2)/2 of each index, in electrons squared of one cell, with f' and f'' as they stand in the
/// model: the direct sum over atoms and operators, International Tables B 1.2. Each index has the value that it has
/// alone, in whatever list it stands.
std::vector<double> CalculateSquaredFactors(const CrystalModel& model, std::span<const MillerIndex> indices);

struct UniqueReflection {
  MillerIndex index;
  /// Number of equivalents in the whole sphere.
  int multiplicity = 0;
  /// 1/d squared, 1/square Angstrom.
  double inverse_square_spacing = 0.0;
};

/// One reflection of each set of equivalents with d of at least `d_min` Angstrom, systematic absences left out, by h,
/// k, l. The cell must be valid and d_min above 0.
std::vector<UniqueReflection> UniqueReflections(const Lattice& lattice, const SymmetryGroup& symmetry, double d_min);

/// All reflections of half a sphere (the first index that is not 0 is positive), systematic absences left out, by h,
/// k, l.
std::vector<MillerIndex> HalfSphere(const Lattice& lattice, const SymmetryGroup& symmetry, double d_min);

}  // namespace talven
