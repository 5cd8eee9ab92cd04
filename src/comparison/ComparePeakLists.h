// The comparison of two peak lists, from what their files hold to the scores.
#pragma once

#include <optional>

#include "comparison/ScorePair.h"

namespace talven {

/// Makes a list that was read ready to be scored, in place, and gives its bands. If the settings apply the limit
/// (degrees 2theta) the peaks below it are counted; on purpose the count is added to what `low_count` holds already.
PeakBands PreparePeaks(const ComparisonSettings& settings, float two_theta_limit, PreparedPeaks& peaks);

/// Scores a sample against a reference, whose wavelength is in Angstrom: the scores that the log gives for these two
/// alone. Nothing if one of the lists has no peak.
std::optional<PairScore> ComparePeakLists(const PeakList& reference, float wavelength, const PeakList& sample,
                                          const ComparisonSettings& settings);

}  // namespace talven
