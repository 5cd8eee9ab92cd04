// The list of all reflections in a box of indices, each of the same made-up intensity.
//
//        0  -6   0  100.00    1.00    0.30   34.92       h, k, l, intensity, sigma, sin theta, 2theta
#pragma once

#include <cstdint>

#include "crystal/UnitCell.h"
#include "textio/TextOutput.h"

namespace talven {

struct HklLimits {
  std::int32_t HMax = 0;
  std::int32_t KMax = 0;
  std::int32_t LMax = 0;
};

/// Half the cell edges in Angstrom, to the nearest whole number, plus one.
HklLimits LimitsOf(const UnitCell& cell);

/// The lattice whose general absences are left out; none for a primitive one.
enum class AbsenceRule { kNone, kA, kB, kC, kF, kI };

/// The rule for an upper-case lattice letter; none for P, for R and for 0, no letter.
AbsenceRule RuleOfLattice(std::int32_t letter);

/// The reciprocal cell of the list. On purpose its volume comes from cosines that were not stored, and so differs from
/// the simulator's in the last digits.
ReciprocalCell DeriveDummyCell(const UnitCell& cell);

/// The list's layers, one for each h from 0 on. A limit below 0 leaves none.
std::int64_t LayerCount(const HklLimits& limits);

/// What all layers of a list have in common; the wavelength in Angstrom.
struct DummyList {
  ReciprocalCell cell;
  float wavelength = 0.0F;
  HklLimits limits;
  AbsenceRule rule = AbsenceRule::kNone;
};

/// Writes the rows of one h, from 0 on. The rows with h = 0 have no negative l, and (0,0,0) is left out; (0,k,0) and
/// (0,-k,0) are both there on purpose. Nothing is left out for its Bragg angle: where sin theta passes 1 the 2theta
/// column holds 0.90.
void WriteDummyLayer(const DummyList& list, std::int64_t h, TextOutput& hkl);

}  // namespace talven
