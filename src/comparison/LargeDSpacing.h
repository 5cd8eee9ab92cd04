// The lines of large d-spacing, which the comparison can judge by: those below an angle.
#pragma once

#include "comparison/PeakList.h"

namespace talven {

/// The 2theta in degrees at which a plane spacing of DSPACE reflects a wavelength in Angstrom, by Bragg's law. No
/// number if the wavelength is more than twice the spacing.
float FindTwoThetaLimit(float wavelength, float DSPACE);

/// How many peaks lie below an angle (degrees 2theta).
std::int32_t CountPeaksBelow(const PeakList& list, float limit);

}  // namespace talven
