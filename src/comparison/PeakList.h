// The peaks of one powder pattern: their scale, their order and the lines of large d-spacing among them.
#pragma once

#include <cstdint>

#include "textio/Array1.h"

namespace talven {

inline constexpr std::int32_t kPeakCapacity = 100;
/// What a peak adds to the area of a pattern, as a share of its height: a stored tenth, which expressions take at 64
/// bits.
inline constexpr double kAreaPerCount = 0.1F;

/// Peaks 1 to `count`. Slots above the count keep what stood there before, and the band scan of a very short list looks
/// at them.
struct PeakList {
  std::int32_t count = 0;
  /// Position in degrees 2theta.
  Array1<float, kPeakCapacity> TwoTheta;
  /// Peak height; after normalising the strongest peak has 99000.
  Array1<float, kPeakCapacity> Intensity;
  /// The positions alone, by rising angle; set by the sort by intensity.
  Array1<float, kPeakCapacity> RisingTwoTheta;
};

/// The 2theta in degrees at which a plane spacing of DSPACE reflects a wavelength in Angstrom, by Bragg's law. No
/// number if the wavelength is more than twice the spacing.
float FindTwoThetaLimit(float wavelength, float DSPACE);

/// How many peaks lie below an angle (degrees 2theta).
std::int32_t CountPeaksBelow(const PeakList& list, float limit);

/// Scales the intensities so that the strongest is 99000, and gives the area: the sum of a tenth of each, taken before
/// the scaled values are rounded. If no intensity is above 0 the results are infinite or no numbers.
float NormalisePeaks(PeakList& list);

/// Sorts the peaks of a list, strongest first, and sets the rising positions. Peaks of equal intensity stand in the
/// order that this very sort gives, and as the first four decide on a score, no other will do.
void SortPeaksByIntensity(PeakList& list);

}  // namespace talven
