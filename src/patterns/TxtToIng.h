// From a plain table of X and Y to the job's ING pattern.
//
//     REM a remark
//     4.00   20
//     4.05   57
#pragma once

#include "textio/Array1.h"
#include "ui/RunState.h"
#include "ui/Ui.h"

namespace talven {

inline constexpr std::int32_t kLargestXyPointCount = 100'000;

struct TxtToIngData {
  Array1<float, kLargestXyPointCount> X;
  Array1<float, kLargestXyPointCount> Y;
};

/// Reads job.TXT and replaces job.ING. Lines behind point 100000 are not read. StopFlag becomes 1 if there is no TXT
/// file. Throws FatalIoError, also for a blank line and for a file of fewer than two points.
void TxtToIng(Ui& ui, RunState& run, TxtToIngData& data);

}  // namespace talven
