// Reducing a peak list to bands: runs of strong neighbouring peaks, as a crowded region shows them.
#pragma once

#include <cstdint>

#include "comparison/PeakList.h"

namespace talven {

/// One band. Positions in degrees 2theta, intensities on the scale on which the strongest peak has 99000.
struct PeakBand {
  /// First peak; after ConvertToCentre the centre of the band.
  float Start = 0.0F;
  /// Last peak; after ConvertToCentre the width of the band.
  float End = 0.0F;
  float HighestIntensity = 0.0F;
  float HighestPosition = 0.0F;
  float IntensitySum = 0.0F;
  /// Peaks in the band. On purpose: 0 for a single peak.
  float PeakCount = 0.0F;
};

/// Every band but the last takes at least two peaks, so half the capacity of a list is enough.
struct BandTable {
  std::int32_t count = 0;
  Array1<PeakBand, kPeakCapacity / 2> rows;
};

/// Scans a normalised list in rising 2theta. A peak counts if it is above `Btres`, and neighbours share a band if they
/// are less than `BSep` degrees apart. Gives the number of peaks in the band that the scan saw last, 1 if it saw none
/// at its end.
///
/// On purpose: the last peak of three or more belongs to no band; the last but one is added twice if it joins the band
/// in which the scan ends; that band stays even with a single peak, while elsewhere a single peak is no band.
std::int32_t BuildBands(const PeakList& list, float BSep, float Btres, BandTable& table);

/// Turns start and end into centre and width.
void ConvertToCentre(PeakBand& band);

}  // namespace talven
