// The peaks of one powder pattern, as a peak list file gives them.
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

}  // namespace talven
