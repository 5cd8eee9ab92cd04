// The scores of the comparison for a candidate of a screening.
#pragma once

#include <vector>

#include "comparison/PeakList.h"
#include "peaks/PickPeaks.h"
#include "screening/ScoreCandidate.h"
#include "screening/ScreenTarget.h"

namespace talven {

struct ComparisonScores {
  double m1 = 0.0;
  double m2 = 0.0;
  double bmatch = 0.0;
};

/// Peaks as a list file holds them, three decimals of the angle and one of the height; the first 100.
PeakList ListOf(const std::vector<Peak>& peaks);

/// The local maxima above 1 % of the highest in the pattern of these lines with the profile of the target, the
/// strongest 100, by rising angle.
std::vector<Peak> TextbookPeaks(const ScreenTarget& target, const LineList& lines);

/// With the comparison's default settings, the target's peaks being the reference. All 0 where either list is empty.
ComparisonScores CompareWithTarget(const ScreenTarget& target, const LineList& lines);

}  // namespace talven
