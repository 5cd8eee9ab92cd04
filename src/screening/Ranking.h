// The order of all candidates of a screening, and the table that tells it.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "crystal/Lattice.h"
#include "screening/ComparisonScores.h"
#include "screening/ScoreCandidate.h"

namespace talven {

/// A candidate after stage 1.
struct CoarseRow {
  /// Its place among all candidates of the screening, from 1: it decides between equal scores.
  std::size_t index = 0;
  std::string name;
  CoarseScore score;
  ComparisonScores comparison;
  /// As given; nothing for a candidate without a cell.
  std::optional<Lattice> lattice;
};

/// A candidate after stage 2.
struct FittedRow {
  CoarseRow coarse;
  FittedScore fitted;
};

struct RankedRow {
  std::size_t rank = 0;
  std::string name;
  double score = 0.0;
  double score_as_given = 0.0;
  std::optional<Lattice> lattice;
  std::optional<Texture> texture;
  ComparisonScores comparison;
  std::string note;
};

/// How many of the best are compared with each other.
inline constexpr std::size_t kComparedWithEachOther = 100;

/// Stage 1 for one candidate.
CoarseRow ScreenCoarsely(const ScreenTarget& target, const Candidate& candidate, std::size_t index);

/// Puts the rows in the order of their scores, best first, and gives how many of them stage 2 is for: the best tenth,
/// 50 at least, or all.
std::size_t SortCoarse(std::vector<CoarseRow>& rows, bool takes_all);

/// Puts the rows in the order of their scores, best first.
void SortFitted(std::vector<FittedRow>& rows);

/// For each of the best candidates, in their order and with their cells as given: the place of the first one before it
/// with which it correlates above 0.999, so that the two count as the same; nothing if there is none.
std::vector<std::optional<std::size_t>> FindSame(const ScreenTarget& target, const std::vector<LineList>& best);

/// The rows of the table: those of stage 2, best first, and after them the ones that stage 2 did not reach. `same` is
/// that of the first rows of the table.
std::vector<RankedRow> Rank(const std::vector<FittedRow>& fitted, const std::vector<CoarseRow>& coarse,
                            const std::vector<std::optional<std::size_t>>& same);

}  // namespace talven
