#include "comparison/ComparePeakLists.h"

namespace talven {

PeakBands PreparePeaks(const ComparisonSettings& settings, float two_theta_limit, PreparedPeaks& peaks) {
  if (settings.Apply) peaks.low_count += CountPeaksBelow(peaks.list, two_theta_limit);
  peaks.area = NormalisePeaks(peaks.list);
  PeakBands found = BuildBands(peaks.list, settings.BSep, settings.Btres);
  peaks.bands.clear();
  for (const PeakBand& band : found.bands) peaks.bands.push_back(CentreOf(band));
  SortPeaksByIntensity(peaks.list);
  return found;
}

std::optional<PairScore> ComparePeakLists(const PeakList& reference, float wavelength, const PeakList& sample,
                                          const ComparisonSettings& settings) {
  if (reference.count == 0 || sample.count == 0) return std::nullopt;
  const float limit = FindTwoThetaLimit(wavelength, settings.DSPACE);
  PreparedPeaks prepared_reference;
  prepared_reference.list = reference;
  PreparedPeaks prepared_sample;
  prepared_sample.list = sample;
  PreparePeaks(settings, limit, prepared_reference);
  PreparePeaks(settings, limit, prepared_sample);
  return ScorePair(prepared_reference, prepared_sample, limit, settings);
}

}  // namespace talven
