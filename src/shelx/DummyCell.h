// The reciprocal cell as the dummy reflection list needs it.
#pragma once

#include "crystal/UnitCell.h"

namespace talven {

/// Fills the direct cosines, the volume and all reciprocal values of a cell from its lengths and angles. On purpose the
/// volume comes from cosines that were not stored, and so differs from the simulator's in the last digits; the
/// reciprocal angles come from the stored ones.
void DeriveDummyCell(UnitCell& cell);

}  // namespace talven
