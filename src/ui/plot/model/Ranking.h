// A row of a screening's ranking as sticks below the measured pattern.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "crystal/Lattice.h"
#include "crystal/Pattern.h"
#include "textio/TextInput.h"

namespace talven {

/// Of the table that `talven-run screen` writes: the columns that a plot shows.
struct RankingRow {
  std::string rank;
  std::string candidate;
  std::string score;
  /// As fitted; nothing for a candidate without a cell.
  std::optional<Lattice> cell;
  std::string note;
};

/// Tab separated, under a head line that names rank, candidate, score, a, b, c, alpha, beta and gamma. Throws
/// FatalIoError for a text that is no such table.
std::vector<RankingRow> ReadRanking(TextInput& input);

struct Stick {
  /// Degrees.
  double two_theta = 0.0;
  /// Of the strongest in range.
  double share = 0.0;
  /// h k l; empty for a candidate without a cell.
  std::string label;
};

struct StickSet {
  /// Name, score and cell.
  std::string title;
  /// By rising angle.
  std::vector<Stick> sticks;
};

/// The lines of a row's candidate at its fitted cell, at a wavelength in Angstrom, as far as the measured pattern
/// reaches. `path` is the candidate's file. Throws FatalIoError if that cannot be read.
StickSet SticksOf(const RankingRow& row, const std::string& path, const Pattern& measured, double wavelength);

}  // namespace talven
