// The order in which peaks are matched.
#pragma once

#include "comparison/PeakList.h"

namespace talven {

/// Sorts the peaks of a list, strongest first, and sets the rising positions. Peaks of equal intensity stand in the
/// order that this very sort gives, and as the first four decide on a score, no other will do.
void SortPeaksByIntensity(PeakList& list);

}  // namespace talven
