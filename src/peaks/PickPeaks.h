// Finding the peaks of a measured pattern by its second derivative.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "crystal/Pattern.h"

namespace talven {

/// The comparison takes no more peaks than this from a list.
inline constexpr std::size_t kListedPeaks = 100;

struct Peak {
  /// Degrees.
  double two_theta = 0.0;
  /// Smoothed counts above the background.
  double height = 0.0;
  /// Full width at half of the height, degrees: as far as the neighbours let it be seen.
  double fwhm = 0.0;
  /// The K alpha 2 companion of a stronger peak.
  bool is_alpha2 = false;
};

struct PeakOptions {
  /// Width of the peaks, degrees; measured from the strongest isolated ones where it is not given.
  std::optional<double> fwhm;
  /// How many standard errors of the second derivative a peak has to rise above zero.
  double threshold = 3.5;
  bool keep_alpha2 = false;
  /// Angstrom; the pattern's own where it is not given.
  std::optional<double> wavelength;
};

struct PickedPeaks {
  /// The strongest 100 by rising angle; K alpha 2 companions only if they are to be kept.
  std::vector<Peak> peaks;
  /// Companions that were found, kept or not, and peaks that were left out because there were more than 100.
  std::size_t alpha2_count = 0;
  std::size_t left_out_count = 0;
  /// At each point of the pattern, in its unit.
  std::vector<double> background;
  /// The width that was worked with, degrees.
  double fwhm = 0.0;
  /// Angstrom, where the pattern or the options tell it.
  std::optional<double> wavelength;
  /// What was noticed, one sentence each.
  std::vector<std::string> notices;
};

/// Leaves the strongest so many of peaks that stand by rising angle; of equal ones the first.
void KeepStrongest(std::vector<Peak>& peaks, std::size_t count);

/// A local maximum of the negative second derivative.
struct PeakCandidate {
  Peak peak;
  /// The second derivative in units of its standard error.
  double significance = 0.0;
};

/// All that does not depend on the threshold and on what is kept, so that both can be tried at little cost.
struct PeakSearch {
  /// By rising angle.
  std::vector<PeakCandidate> candidates;
  std::vector<double> background;
  double fwhm = 0.0;
  std::optional<double> wavelength;
  /// K alpha 2 / K alpha 1, where both wavelengths are told or known; 0 otherwise.
  double alpha2_wavelength_ratio = 0.0;
  std::vector<std::string> notices;
};

/// The slow part of the work, linear in the points.
PeakSearch SearchPeaks(const Pattern& pattern, const PeakOptions& options);

/// The quick part: of the options only the threshold and what is kept are looked at.
PickedPeaks PickPeaks(const PeakSearch& search, const PeakOptions& options);

/// Both. Savitzky and Golay, Anal. Chem. 36 (1964) 1627, for the second derivative; Mariscotti, Nucl. Instrum. Methods
/// 50 (1967) 309, for its test against the error.
PickedPeaks PickPeaks(const Pattern& pattern, const PeakOptions& options);

}  // namespace talven
