// The common scale of peak heights.
#pragma once

#include "comparison/PeakList.h"

namespace talven {

/// Scales the intensities so that the strongest is 99000, and gives the area: the sum of a tenth of each, taken before
/// the scaled values are rounded. If no intensity is above 0 the results are infinite or no numbers.
float NormalisePeaks(PeakList& list);

}  // namespace talven
