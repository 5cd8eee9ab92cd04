// The settings of a comparison.
#pragma once

#include <cstdint>

#include "textio/Numbers.h"

namespace talven {

/// Named as the log's heading names them. Made afresh it holds the start values.
struct ComparisonSettings {
  /// Two peaks match if they are less than this apart, degrees.
  float AngTol = 0.3F;
  /// Largest accepted fraction of reference peaks without a partner.
  float NMF = 0.33F;
  /// Largest accepted difference of the areas, as a fraction of the reference's. On purpose: as a stored real the start
  /// value lies just below the field's range, so the field refuses it and keeps its own 0.25.
  float SAF = 0.02F;
  /// Matches wanted among the four strongest peaks of both lists; a whole number.
  float T4M = 2.0F;
  /// Gap that parts two bands, degrees.
  float BSep = 2.8F;
  /// Intensity above which a peak counts for a band, where the strongest has 99000; a whole number.
  float Btres = 10000.0F;
  /// Tolerance of a band match: twice what the form shows.
  float Berr = 3.0F;
  /// Limit of the large d-spacings, Angstrom.
  float DSPACE = 7.0F;
  bool Apply = false;
  bool Verbose = false;
  bool MostInt = false;

  float ShownBerr() const { return 0.5F * Berr; }
  std::int32_t WholeT4M() const { return NearestWhole(T4M); }
};

}  // namespace talven
