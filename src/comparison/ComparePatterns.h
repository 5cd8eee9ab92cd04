// The comparison of powder patterns: one reference peak list after the other, each against as many samples as the user
// names, with a log in the current directory.
#pragma once

#include "comparison/ComparisonSettings.h"
#include "comparison/ScorePair.h"
#include "textio/OutputFile.h"
#include "ui/PeakFileSelector.h"
#include "ui/Ui.h"

namespace talven {

/// What lasts from sample to sample, run to run and call to call.
struct ComparisonData {
  /// Stays open after a cancel, and the next comparison goes on at its end.
  OutputFile Log;
  ComparisonSettings Settings;
  ComparedPair Pair;
  PeakFileSelector Selector;
  LineCleaner Cleaner;
  FileStem Stem;
  std::int32_t StemLength = 0;
  /// In and out of the file selector. On purpose: in between it takes the length of the directory's name, so that 8
  /// characters have the pane cleared, and 99 are taken for a cancel.
  std::int32_t SelectorStatus = 0;
  /// Sample peaks without a partner in the last comparison. On purpose: the field of Btres is filled from it.
  std::int32_t NotMatchedS = 0;
};

/// Asks for settings, reference and samples until the user has enough, and writes Talven_corvane.log. Throws
/// FatalIoError for a peak list that is not there or can't be read, and for a log that can't be written.
void ComparePatterns(Ui& ui, ComparisonData& data);

/// Completes and closes a log that a cancel left open. Throws FatalIoError.
void CloseComparisonLog(ComparisonData& data);

}  // namespace talven
