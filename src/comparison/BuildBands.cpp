#include "comparison/BuildBands.h"

#include "textio/Numbers.h"

namespace talven {
namespace {

/// One pass over a list.
struct BandScan {
  const PeakList& list;
  const float BSep;
  const float Btres;
  BandTable& table;
  /// The peak that the scan stands at.
  std::int32_t k = 0;
  /// Peaks in the open band.
  std::int32_t peaks = 0;

  PeakBand& Row() { return table.rows[table.count]; }
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
  ++scan.table.count;
  PeakBand& row = scan.Row();
  row.Start = scan.list.TwoTheta[scan.k];
  row.HighestIntensity = scan.list.Intensity[scan.k];
  row.HighestPosition = scan.list.TwoTheta[scan.k];
  row.IntensitySum = scan.list.Intensity[scan.k];
}

/// Adds the peak behind the present one if it belongs to the open band.
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

/// Takes peaks into the open band until one stands apart or the scan ends. The end tests the peak that it stands before
/// once more.
void FillBand(BandScan& scan) {
  while (JoinNext(scan) && !scan.IsAtEnd()) ++scan.k;
  if (scan.IsAtEnd()) {
    const bool joined = JoinNext(scan);
    scan.Row().End = scan.list.TwoTheta[joined ? scan.k + 1 : scan.k];
  } else if (scan.peaks == 1) {
    --scan.table.count;
  } else {
    scan.Row().End = scan.list.TwoTheta[scan.k];
  }
}

}  // namespace

std::int32_t BuildBands(const PeakList& list, float BSep, float Btres, BandTable& table) {
  table = BandTable();
  BandScan scan{list, BSep, Btres, table};
  while (FindFirstPeak(scan)) {
    OpenBand(scan);
    FillBand(scan);
    if (scan.IsAtEnd()) return scan.peaks;
  }
  return 1;
}

void ConvertToCentre(PeakBand& band) {
  band.End = Store(static_cast<double>(band.End) - band.Start);
  band.Start = Store(band.Start + 0.5 * band.End);
}

}  // namespace talven
