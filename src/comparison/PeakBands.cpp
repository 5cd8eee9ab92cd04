#include "comparison/PeakBands.h"

#include "textio/Numbers.h"

namespace talven {
namespace {

/// One pass over a list.
struct BandScan {
  const PeakList& list;
  const float BSep;
  const float Btres;
  std::vector<PeakBand>& bands;
  /// The peak that the scan stands at.
  std::int32_t k = 0;
  /// Peaks in the open band.
  std::int32_t peaks = 0;

  PeakBand& Row() { return bands.back(); }
  bool IsAtEnd() const { return k >= list.count - 2; }
  bool Qualifies(std::int32_t peak) const { return list.Intensity[peak] > Btres; }
};

/// Goes on to the next peak that can open a band; false at the end of the scan.
bool FindFirstPeak(BandScan& scan) {
  while (true) {
    ++scan.k;
    if (scan.Qualifies(scan.k)) return true;
    if (scan.IsAtEnd()) return false;
  }
}

void OpenBand(BandScan& scan) {
  scan.peaks = 1;
  PeakBand& row = scan.bands.emplace_back();
  row.Start = scan.list.TwoTheta[scan.k];
  row.HighestIntensity = scan.list.Intensity[scan.k];
  row.HighestPosition = scan.list.TwoTheta[scan.k];
  row.IntensitySum = scan.list.Intensity[scan.k];
}

/// Adds the peak after the present one if it belongs to the open band.
bool JoinNext(BandScan& scan) {
  const std::int32_t next = scan.k + 1;
  const double position = scan.list.TwoTheta[next];
  const float intensity = scan.list.Intensity[next];
  if (!(position - scan.list.TwoTheta[scan.k] < scan.BSep) || !scan.Qualifies(next)) return false;
  PeakBand& row = scan.Row();
  ++scan.peaks;
  row.IntensitySum = Store(static_cast<double>(row.IntensitySum) + intensity);
  row.PeakCount = Store(scan.peaks);
  if (intensity > row.HighestIntensity) {
    row.HighestIntensity = intensity;
    row.HighestPosition = scan.list.TwoTheta[next];
  }
  return true;
}

/// Takes peaks into the open band until one stands apart or the scan ends. At the end the next peak is tested once
/// more, so that one that has just joined is added twice.
void FillBand(BandScan& scan) {
  while (JoinNext(scan) && !scan.IsAtEnd()) ++scan.k;
  if (scan.IsAtEnd()) {
    const bool joined = JoinNext(scan);
    scan.Row().End = scan.list.TwoTheta[joined ? scan.k + 1 : scan.k];
  } else if (scan.peaks == 1) {
    scan.bands.pop_back();
  } else {
    scan.Row().End = scan.list.TwoTheta[scan.k];
  }
}

}  // namespace

PeakBands BuildBands(const PeakList& list, float BSep, float Btres) {
  PeakBands found;
  BandScan scan{list, BSep, Btres, found.bands};
  while (FindFirstPeak(scan)) {
    OpenBand(scan);
    FillBand(scan);
    if (scan.IsAtEnd()) {
      found.last_peak_count = scan.peaks;
      break;
    }
  }
  return found;
}

BandCentre CentreOf(const PeakBand& band) {
  const float width = Store(static_cast<double>(band.End) - band.Start);
  return {Store(band.Start + 0.5 * width), band.HighestPosition};
}

}  // namespace talven
