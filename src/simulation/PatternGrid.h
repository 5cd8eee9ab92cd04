// The 2theta grid of a pattern: its extent, and the arrays that hold a value for each of its points.
#pragma once

#include <cstdint>

#include "textio/Array1.h"

namespace talven {

inline constexpr std::int32_t kLargestPointCount = 10'000;
/// Tails of the last points run past PointCount, up to 5,001 points far.
inline constexpr std::int32_t kGridCapacity = 30'000;

struct PatternGrid {
  /// The working intensity, and the finished pattern at the end.
  Array1<float, kGridCapacity> Profile;
  /// Intensity of each point before broadening, after the first scaling.
  Array1<float, kGridCapacity> Stick;
  /// 2theta of each point in degrees, with two decimals.
  Array1<float, kGridCapacity> GridAngle;
  /// The last reflection that fell into each point's bin, 0 for none.
  Array1<std::int32_t, kGridCapacity> BinReflection;
  /// The whole degrees above the highest reflection.
  std::int32_t TopAngle = 0;
  std::int32_t PointCount = 0;
};

/// Sets TopAngle and PointCount for the highest 2theta of the list, all in degrees. The count may pass the largest or
/// be below 1.
void SizeGrid(float highest_two_theta, float step, float two_theta_min, PatternGrid& grid);

}  // namespace talven
