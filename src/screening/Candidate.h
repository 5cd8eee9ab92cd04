// One structure, pattern or peak list as the screening sees it: lines with a strength and a d that may change.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "crystal/CrystalModel.h"
#include "crystal/Pattern.h"
#include "crystal/Symmetry.h"
#include "screening/FreeCell.h"
#include "screening/Texture.h"

namespace talven {

/// Where lines count: the wavelength in Angstrom, and the range of the measured pattern in degrees 2theta.
struct LineRange {
  double wavelength = 0.0;
  double first = 0.0;
  double last = 0.0;
};

struct Candidate {
  std::string name;
  /// Nothing for a pattern or a list of peaks, whose lines can only change by one common scale.
  std::optional<FreeCell> cell;
  /// For each line of a structure; empty without a cell.
  std::vector<MillerIndex> indices;
  /// 1/d squared, 1/square Angstrom, rising.
  std::vector<double> inverse_squares;
  /// Of a structure: F squared times multiplicity. Without a cell: the intensity as it was seen.
  std::vector<double> strengths;
  /// One for each axis of kTextureAxes, where texture was asked for and there is a cell.
  std::vector<TextureAngles> texture;
  /// What was noticed in reading, one sentence each.
  std::vector<std::string> notices;
};

/// Spacings may shrink or grow by this share.
inline constexpr double kSpacingMargin = 0.05;

/// The lines of a structure as far as the range reaches with its margin. `model` has f' and f'' at the wavelength.
Candidate CandidateOf(const CrystalModel& model, const LineRange& range, bool has_texture);

/// Lines of a pattern or peak list: angles in degrees at a wavelength of their own.
Candidate CandidateOfLines(const std::vector<double>& two_theta, const std::vector<double>& intensities,
                           double wavelength);

/// The lines that stand for a pattern: its counts above the background, summed over half a width each.
Candidate CandidateOfPattern(const Pattern& pattern, double wavelength, double fwhm);

}  // namespace talven
