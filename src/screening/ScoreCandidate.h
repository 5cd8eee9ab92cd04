// The two stages in which one candidate is scored against the measured pattern.
#pragma once

#include <optional>

#include "crystal/Lattice.h"
#include "screening/Candidate.h"
#include "screening/Correlation.h"
#include "screening/ScreenTarget.h"
#include "screening/Texture.h"

namespace talven {

/// Stage 1: all lengths scaled together, with the wide triangle.
struct CoarseScore {
  double score = 0.0;
  /// The scale of the lengths at which it was found.
  double scale = 1.0;
  /// With the narrow triangle and no change of the cell.
  double score_as_given = 0.0;
};

/// -4 to +4 % in steps of 0.25 %. Of equal scores the one of the smaller change counts.
CoarseScore ScoreCoarsely(const ScreenTarget& target, const Candidate& candidate);

/// Stage 2: the cell fitted.
struct FittedScore {
  double score = 0.0;
  /// Nothing for a candidate without a cell.
  std::optional<Lattice> lattice;
  /// Of a candidate without a cell: the scale of its d.
  double scale = 1.0;
  std::optional<Texture> texture;
};

/// The parameters that symmetry leaves free, within 5 % and 2.9 degrees, from two simplices that start at the scale of
/// stage 1; one common scale where there is no cell. With the texture of the candidate, if it has any, about each of
/// the three axes in turn.
FittedScore FitCandidate(const ScreenTarget& target, const Candidate& candidate, double scale);

/// The positions (rising, degrees) and intensities of a candidate's lines that lie in the range of the target, its cell
/// as given.
struct LineList {
  std::vector<double> two_theta;
  std::vector<double> intensities;
};
LineList LinesAsGiven(const ScreenTarget& target, const Candidate& candidate);

}  // namespace talven
