// The table of stage 1 that a share of a screening writes, for `rank` to join.
//
// Tab separated: a head line, then a row for each candidate of the share, by rising index. What the shares must have in
// common stands in every row. A candidate that could not be read has its first three values only. Real numbers have the
// shortest digits that give the same number again, so that joined shares rank as one screening does.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "screening/Ranking.h"
#include "screening/ScreenTarget.h"
#include "textio/TextInput.h"

namespace talven {

/// `index` counts from 1 to `total`; `texture` is 0 or 1; `power` is the measured pattern's C11 of stage 1, by which it
/// is known again.
inline constexpr std::array<std::string_view, 19> kShareColumns = {
    "index", "total", "candidate", "score", "score_as_given", "scale", "m1",         "m2",   "bmatch", "a",
    "b",     "c",     "alpha",     "beta",  "gamma",          "power", "wavelength", "fwhm", "texture"};

struct ShareTable {
  std::size_t total = 0;
  /// Only where there is a row that tells them.
  bool has_settings = false;
  double power = 0.0;
  ScreenOptions options;
  std::vector<CoarseRow> rows;
  /// Indices of candidates that could not be read.
  std::vector<std::size_t> failed;
};

/// Throws FatalIoError for a text that is no such table.
ShareTable ReadShareTable(TextInput& input);

/// All shares of one screening together, by rising index. Throws std::invalid_argument with a whole sentence if a
/// candidate is missing or comes twice, or if they are not of one screening.
ShareTable JoinShares(const std::vector<ShareTable>& shares);

}  // namespace talven
