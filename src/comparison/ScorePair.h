// Scoring a sample against a reference: peak by peak, by total intensity, and band by band.
#pragma once

#include "comparison/BuildBands.h"
#include "comparison/ComparisonSettings.h"
#include "comparison/PeakList.h"

namespace talven {

/// Two patterns that are ready to be scored: peaks normalised and strongest first, bands as centre and width.
struct ComparedPair {
  PeakList Reference;
  PeakList Sample;
  BandTable ReferenceBands;
  BandTable SampleBands;
  float RefArea = 0.0F;
  /// Peaks below this angle have a large d-spacing; degrees 2theta.
  float TwoThetaLimit = 0.0F;
  /// Peaks below the limit. On purpose: the reference's count grows with every reference of a comparison.
  std::int32_t RefLowCount = 0;
  std::int32_t SampleLowCount = 0;
};

/// The scores, under the log's names, and what the verbose log tells of how they came about.
struct PairScore {
  /// Peak score, called M1 in the log: at first the number of matching pairs, in the end 0 to 1.
  float RMATCH = 0.0F;
  float M2 = 0.0F;
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

/// Both lists have at least one peak. BMATCH is no number if the reference has no band.
PairScore ScorePair(const ComparedPair& pair, const ComparisonSettings& settings);

}  // namespace talven
