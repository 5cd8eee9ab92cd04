// From a reflection list to a powder profile: a grid of points, bins on it, two-sided exponential tails, powder
// correction and two scalings. The steps are called once each, in the order in which they stand here.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "crystal/Pattern.h"
#include "crystal/ReflectionList.h"
#include "simulation/PatternOptions.h"
#include "textio/Array1.h"

namespace talven {

inline constexpr std::int32_t kLargestPointCount = 10'000;
/// How far tails reach, and run past the last points.
inline constexpr std::int32_t kLongestTail = 5'001;

struct GridExtent {
  /// The whole degrees above the highest reflection.
  std::int32_t TopAngle = 0;
  /// May pass the largest count or be below 1; then there can be no synthesis.
  std::int32_t PointCount = 0;
};

/// The extent of the grid for the highest 2theta of a list, in degrees, 0 if there is none above.
GridExtent SizeGrid(float highest_two_theta, const PatternOptions& options);
float HighestTwoTheta(const ReflectionList& list);

/// Working data of the synthesis. Nothing in it lasts from one synthesis to the next.
struct SynthesisData {
  std::int32_t PointCount = 0;
  /// The working intensity of each point.
  Array1<float, kLargestPointCount + kLongestTail> Profile;
  /// Intensity of each point before broadening, after the first scaling.
  Array1<float, kLargestPointCount> Stick;
  /// 2theta of each point in degrees, with two decimals.
  Array1<float, kLargestPointCount> GridAngle;
  /// The point whose bin a reflection fell into, 0 for none.
  Array1<std::int32_t, kReflectionLimit> PointOf;
  /// Where the reflections of a point go in a list by rising point.
  Array1<std::int32_t, kLargestPointCount> Place;
  /// Lower edges of the bins in degrees, not rounded; one more than there are points.
  Array1<double, kLargestPointCount + 1> BinEdge;
  /// 2 exp(-m/B) for m from 1. The high-angle tails decay twice as fast and use every second element.
  Array1<double, 2 * kLongestTail> TailShape;
  /// Factor of the first scaling; it holds in the second one too, unless that sets its own.
  float Scale = 1.0F;
};

/// Bin sums of which one is too wide for the ten columns of a scratch file, `1X,F8.2,3X,F10.0`, in which they are kept.
struct WideBinSum {
  struct Row {
    /// 2theta, degrees.
    float angle = 0.0F;
    float sum = 0.0F;
  };
  /// The first such point, from 1.
  std::int32_t point = 0;
  /// One for every point.
  std::vector<Row> rows;
};

/// Adds F squared of each reflection to the point whose bin it falls into, and scales the highest bin to at most
/// 99,000. A bin is the open interval above the point's angle: a reflection right on a grid angle is lost. Angles are
/// rounded to two decimals and bin sums to whole numbers, as the scratch file would hold them. Gives the sums if one
/// does not fit there; the synthesis ends with that.
std::optional<WideBinSum> BinReflections(const ReflectionList& list, const PatternOptions& options,
                                         SynthesisData& work);

/// Spreads each stick to both sides. The tails are counted in grid points and are never mirror images: the high-angle
/// one decays twice as fast; symmetrical peaks only make it as long as the other.
void BroadenPeaks(const PatternOptions& options, SynthesisData& work);

/// Raises points below 2 to that and multiplies every point by (1 + cos^2 theta) / (sin^2 theta cos theta), if the
/// options ask for it. On purpose cos^2 theta and not cos^2 2theta.
void ApplyPowderCorrection(const PatternOptions& options, SynthesisData& work);

/// Scales the highest point to at most 99,000 and raises points below 2 to that. On purpose: where scaling is not
/// needed, the first one is applied again.
void FinishIntensities(SynthesisData& work);

/// Fills in the points of a finished synthesis, with the reflections of each in the order of the list.
void FillPoints(const ReflectionList& list, SynthesisData& work, Pattern& pattern);

}  // namespace talven
