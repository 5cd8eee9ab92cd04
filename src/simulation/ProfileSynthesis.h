// From a reflection list to a powder profile: bins on the grid, two-sided exponential tails, powder correction and two
// scalings. The four steps are called once each, in this order.
#pragma once

#include "crystal/ReflectionList.h"
#include "simulation/PatternGrid.h"
#include "textio/Array1.h"
#include "textio/OutputFile.h"

namespace talven {

struct ProfileParameters {
  /// Degrees.
  float Step = 0.0F;
  float TwoThetaMin = 0.0F;
  /// Decay length of the low-angle tails, in grid points; held to 1 to 10.
  float Broadening = 1.0F;
  bool SymmetricalPeaks = false;
  bool PowderCorrection = false;
};

/// Working data of the synthesis beside the grid.
struct SynthesisData {
  /// Lower edges of the bins in degrees, not rounded; one more than there are points.
  Array1<double, kLargestPointCount + 1> BinEdge;
  /// 2 exp(-m/B) for m from 1. The high-angle tails decay twice as fast and use every second element.
  Array1<double, 2 * 5'001> TailShape;
  /// Factor of the first scaling; it holds in the second one too, unless that sets its own.
  float Scale = 1.0F;
};

/// Adds F squared of each reflection to the point whose bin it falls into, and scales the highest bin to at most
/// 99,000. A bin is the open interval above the point's angle: a reflection right on a grid angle is lost. Angles are
/// rounded to two decimals and bin sums to whole numbers, as a scratch file of `1X,F8.2,3X,F10.0` would hold them; a
/// sum that does not fit there throws FatalIoError, and the scratch file then really holds those rows.
void BinReflections(const ReflectionList& list, const ProfileParameters& parameters, OutputFile& scratch,
                    PatternGrid& grid, SynthesisData& work);

/// Spreads each stick to both sides. The tails are counted in grid points and are never mirror images: the high-angle
/// one decays twice as fast; symmetrical peaks only make it as long as the other.
void BroadenPeaks(const ProfileParameters& parameters, PatternGrid& grid, SynthesisData& work);

/// Multiplies every point of at least 2 by (1 + cos^2 theta) / (sin^2 theta cos theta), if the parameters ask for it.
/// On purpose cos^2 theta and not cos^2 2theta.
void ApplyPowderCorrection(const ProfileParameters& parameters, PatternGrid& grid);

/// Scales the highest point to at most 99,000. On purpose: where that is not needed, the first scaling is applied
/// again.
void FinishIntensities(PatternGrid& grid, SynthesisData& work);

}  // namespace talven
