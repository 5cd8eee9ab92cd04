// The measured pattern of a screening, made ready for any number of candidates.
#pragma once

#include <string>
#include <vector>

#include "comparison/PeakList.h"
#include "crystal/Pattern.h"
#include "screening/Candidate.h"
#include "screening/Correlation.h"

namespace talven {

struct ScreenOptions {
  /// Angstrom; the measured pattern's own where it is 0.
  double wavelength = 0.0;
  /// Degrees.
  double fwhm = 0.12;
  bool texture = false;
};

/// Read-only once it is made: any number of threads may work with one.
struct ScreenTarget {
  LineRange range;
  double fwhm = 0.0;
  bool texture = false;
  CorrelationTarget coarse;
  CorrelationTarget fine;
  /// What the comparison takes as reference, as a list file would hold it.
  PeakList peaks;
  std::vector<std::string> notices;
};

/// Throws std::invalid_argument for options that are out of range, a wavelength that is not known, and a pattern that
/// has nothing above its background; the text is a whole sentence without the name of a file.
ScreenTarget MakeScreenTarget(const Pattern& pattern, const ScreenOptions& options);

/// The same for a list of peaks, which becomes a pattern of profiles with the peaks' heights.
ScreenTarget MakeScreenTarget(const PeakList& peaks, const ScreenOptions& options);

}  // namespace talven
