// The steps that `screen` and `rank` share: both stages on several threads, and the table of the ranking.
#pragma once

#include <CLI/App.hpp>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "app/run/BatchOptions.h"
#include "app/run/Reporter.h"
#include "app/run/Table.h"
#include "screening/Ranking.h"
#include "screening/ScreenTarget.h"

namespace talven {

ColumnNames RankingColumns();

/// `--top N`: 0 where all rows are wanted.
void AddTopOption(CLI::App& app, std::size_t& top);

/// Reads the measured pattern and tells what was noticed. Tells the failure, and gives nothing, where that can't be.
std::optional<ScreenTarget> ReadMeasured(const std::string& path, const ScreenOptions& options, Reporter& reporter);

/// A candidate and its place among all of them, from 1.
struct CandidateFile {
  std::size_t index = 0;
  std::string path;
};

/// What stage 1 gave. A file that failed has been told and is missing among the rows.
struct CoarseResult {
  std::vector<CoarseRow> rows;
  std::vector<CandidateFile> failed;
  /// False after a stop signal: not all was done then.
  bool is_whole = false;
};
CoarseResult RunCoarse(const ScreenTarget& target, const std::vector<CandidateFile>& files, std::size_t threads,
                       Reporter& reporter);

/// Stage 2 for the best of the rows, and the table; nothing of it after a stop signal.
void RunRanking(const ScreenTarget& target, std::vector<CoarseRow> rows, std::size_t top, std::size_t threads,
                Reporter& reporter);

}  // namespace talven
