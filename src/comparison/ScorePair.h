// Scoring a sample against a reference: peak by peak, by total intensity, and band by band.
#pragma once

#include <vector>

#include "comparison/ComparisonSettings.h"
#include "comparison/PeakBands.h"
#include "comparison/PeakList.h"

namespace talven {

/// A pattern that is ready to be scored.
struct PreparedPeaks {
  /// Normalised and strongest first.
  PeakList list;
  std::vector<BandCentre> bands;
  float area = 0.0F;
  /// Peaks of large d-spacing.
  std::int32_t low_count = 0;
};

/// The scores, under the log's names, and what the verbose log tells of how they came about.
struct PairScore {
  std::int32_t reference_count = 0;
  std::int32_t sample_count = 0;
  std::int32_t sample_band_count = 0;
  /// Peak score, called M1 in the log: at first the number of matching pairs, in the end 0 to 1.
  float RMATCH = 0.0F;
  float M2 = 0.0F;
  /// Band score: 0 if the reference has no band.
  float BMATCH = 0.0F;
  /// Matching pairs of which both peaks are among the four strongest.
  float T4RS = 0.0F;
  /// Reference peaks without a partner, and those of the four strongest.
  float RNM = 0.0F;
  float RNM4 = 0.0F;
  /// Matching pairs whose sample peak lies below the limit.
  std::int32_t LowMatchCount = 0;
  float InitialRMATCH = 0.0F;
  bool has_few_strong = false;
  bool has_many_unmatched = false;
  float UnmatchedFraction = 0.0F;
  std::int32_t NotMatchedR = 0;
  std::int32_t NotMatchedS = 0;
  float SAREA = 0.0F;
  /// Difference of the areas as a fraction of the reference's.
  float Fract = 0.0F;
};

/// Peaks below `two_theta_limit`, degrees, have a large d-spacing. Both lists have at least one peak.
PairScore ScorePair(const PreparedPeaks& reference, const PreparedPeaks& sample, float two_theta_limit,
                    const ComparisonSettings& settings);

}  // namespace talven
