// From the job's ING pattern to the form that the Unscrambler package takes: two comma-separated records, the angles in
// quotes and the counts, on lines of at most 80 characters.
//
//     "  4.000","  4.050","  4.100"
//          20,     57,     94
#pragma once

#include "textio/Array1.h"
#include "ui/RunState.h"
#include "ui/Ui.h"

namespace talven {

inline constexpr std::int32_t kLargestTxtPointCount = 30'000;

struct IngToTxtData {
  /// 2 theta, degrees.
  Array1<float, kLargestTxtPointCount> Angle;
  Array1<float, kLargestTxtPointCount> Count;
};

/// Reads job.ING and replaces job.TXT. More than 30000 points, or none, are refused in a message box and leave an empty
/// file. StopFlag becomes 1 if there is no ING file. Throws FatalIoError, also for a file with too few rows.
void IngToTxt(Ui& ui, RunState& run, IngToTxtData& data);

}  // namespace talven
