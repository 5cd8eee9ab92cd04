// Reducing a peak list to bands: runs of strong neighbouring peaks, as a crowded region shows them.
#pragma once

#include <cstdint>
#include <vector>

#include "comparison/PeakList.h"

namespace talven {

/// One band. Positions in degrees 2theta, intensities on the scale on which the strongest peak has 99000.
struct PeakBand {
  /// First and last peak.
  float Start = 0.0F;
  float End = 0.0F;
  float HighestIntensity = 0.0F;
  float HighestPosition = 0.0F;
  float IntensitySum = 0.0F;
  /// Peaks in the band. On purpose: 0 for a single peak.
  float PeakCount = 0.0F;
};

/// What of a band is matched: the middle between its ends, and its highest peak; degrees 2theta.
struct BandCentre {
  float Centre = 0.0F;
  float HighestPosition = 0.0F;
};

struct PeakBands {
  std::vector<PeakBand> bands;
  /// Peaks in the band that the scan saw last, 1 if it saw none at its end.
  std::int32_t last_peak_count = 1;
};

/// Scans a normalised list in rising 2theta. A peak counts if it is above `Btres`, and neighbours share a band if they
/// are less than `BSep` degrees apart.
///
/// On purpose: the last peak of three or more belongs to no band; the last but one is added twice if it joins the band
/// in which the scan ends; that band stays even with a single peak, while elsewhere a single peak is no band.
PeakBands BuildBands(const PeakList& list, float BSep, float Btres);

BandCentre CentreOf(const PeakBand& band);

}  // namespace talven
