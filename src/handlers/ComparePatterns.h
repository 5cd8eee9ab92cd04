// The comparison of powder patterns: one reference peak list after the other, each against as many samples as the user
// names, with a log in the folder of the session.
#pragma once

#include "comparison/ComparePeakLists.h"
#include "handlers/PeakFileSelector.h"
#include "textio/OutputFile.h"
#include "ui/Ui.h"

namespace talven {

/// What lasts from sample to sample, run to run and call to call.
struct ComparisonSession {
  /// Stays open after a cancel, and the next comparison goes on at its end.
  OutputFile Log;
  ComparisonSettings Settings;
  /// On purpose: its count of large d-spacings grows with every reference of a comparison.
  PreparedPeaks Reference;
  PreparedPeaks Sample;
  /// Degrees 2theta.
  float TwoThetaLimit = 0.0F;
  PeakFileSelector Selector;
  FileStem Stem;
  std::int32_t StemLength = 0;
  /// What goes into the file selector and comes out of it. On purpose the length of the folder's name is put here after
  /// each file, so that a name of 8 characters clears the pane at the next selection, and one of 99 counts as a cancel.
  std::int32_t SelectorStatus = 0;
  /// Sample peaks without a partner in the last comparison. On purpose: the field of Btres is filled from it.
  std::int32_t NotMatchedS = 0;
};

/// Asks for settings, reference and samples until the user has enough, and writes Talven_corvane.log. Throws
/// FatalIoError for a peak list that is not there or can't be read, and for a log that can't be written.
void ComparePatterns(Ui& ui, const Folder& folder, ComparisonSession& session);

/// Completes and closes a log that a cancel left open. Throws FatalIoError.
void CloseComparisonLog(ComparisonSession& session);

}  // namespace talven
