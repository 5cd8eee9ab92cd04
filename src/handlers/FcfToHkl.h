// Option 6: from the FCF of a SHELXL run (LIST 4) to DUMMY.HKL.
#pragma once

#include <cstdint>

#include "ui/RunState.h"
#include "ui/Ui.h"

namespace talven {

struct FcfToHklData {
  /// Kept from row to row and from call to call: a row of a small value repeats it.
  float Sigma = 0.0F;
};

/// Reads job.fcf and replaces DUMMY.HKL by its calculated F squared. If any value is above 100000 the list is written
/// again with all values at one hundredth. The quiet flag 0 shows a closing line in the pane. StopFlag becomes 1 if
/// there is no FCF. Throws FatalIoError, also for a file without a LIST 4 row.
void FcfToHkl(Ui& ui, RunState& run, FcfToHklData& data, std::int32_t quiet_flag);

}  // namespace talven
