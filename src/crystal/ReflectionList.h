// The reflections of a run, with the range of their indices, and the limits of what is kept.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "textio/Array1.h"

namespace talven {

inline constexpr std::int32_t kReflectionLimit = 30'000;
inline constexpr std::string_view kReflectionLimitMessage = "30,000 reflection limit";

/// For h, k and l: the lowest and highest index seen, and how many of the two were not zero.
struct IndexRange {
  Array1<std::int32_t, 3> IndexMin;
  Array1<std::int32_t, 3> IndexMax;
  /// Added to at each expansion, never set: a restart of the run counts again on top.
  Array1<std::int32_t, 3> AxisCount;
  std::int32_t AxisCountSum = 0;

  void Widen(std::int32_t axis, std::int32_t index) {
    IndexMin[axis] = std::min(IndexMin[axis], index);
    IndexMax[axis] = std::max(IndexMax[axis], index);
  }
};

/// Entries 1 to ReflectionCount, in the order of the file. There is no multiplicity: a powder line is as strong as the
/// entries that stand in the list make it.
struct ReflectionList {
  Array1<std::int32_t, kReflectionLimit> H;
  Array1<std::int32_t, kReflectionLimit> K;
  Array1<std::int32_t, kReflectionLimit> L;
  /// F squared; 0 where it is below its sigma.
  Array1<float, kReflectionLimit> F2;
  /// Degrees.
  Array1<float, kReflectionLimit> TwoTheta;
  std::int32_t ReflectionCount = 0;
  /// Of all rows that were read, kept or not.
  IndexRange Range;
};

/// What decides which reflections are kept.
struct ReflectionLimits {
  /// Angstrom.
  float Wavelength = 0.0F;
  /// Degrees; 0 for no limit.
  float TwoThetaMax = 0.0F;

  bool HasAngleLimit() const { return TwoThetaMax > 0.0001; }
  bool IsBeyond(float two_theta) const { return HasAngleLimit() && two_theta > TwoThetaMax; }
};

}  // namespace talven
