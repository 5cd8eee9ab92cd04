// What the symmetry of a structure makes of a reflection list, and what a list lacks of it.
#pragma once

#include <cstdint>
#include <vector>

#include "crystal/CellGeometry.h"
#include "crystal/ReflectionList.h"
#include "crystal/Symmetry.h"

namespace talven {

struct SymmetryExpansion {
  /// Reflections that no operator of the Laue group turns into each other.
  std::int32_t unique_count = 0;
  /// Half a sphere of them would not fit; the list is as it was.
  bool limit_met = false;
};

/// Replaces the list by half a sphere: entries that are equivalent under the Laue group become one with the mean of
/// their F squared, and each equivalent of it in half a sphere is put in once, with its 2theta at a wavelength in
/// Angstrom. Merged data of any Laue class, and unmerged ones, come out alike.
SymmetryExpansion ExpandBySymmetry(const SymmetryGroup& symmetry, const ReciprocalCell& cell, float wavelength,
                                   ReflectionList& list);

/// A line of a list that holds another share of its equivalents than most lines do.
struct UnevenLine {
  MillerIndex index;
  /// Degrees.
  float two_theta = 0.0F;
  float F2 = 0.0F;
  /// How high the line comes out, where 1 is right.
  double factor = 1.0;
};

/// The uneven lines of a list, the one that is wrong by the greatest intensity first. A list that is closed under the
/// Laue group has none. What most lines hold, counted by their equivalents, is taken for right.
std::vector<UnevenLine> FindUnevenLines(const SymmetryGroup& symmetry, const ReflectionList& list);

}  // namespace talven
