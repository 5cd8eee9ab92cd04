// From the job's ING pattern to an ASCII spectrum of a SPECTRUM ONE infra-red instrument: 36 lines of head, then X in
// thousandths of a degree and Y with the strongest point at 2. No option of the form calls it.
#pragma once

#include "ui/RunState.h"
#include "ui/Ui.h"

namespace talven {

/// Reads job.ING and replaces job.ASC. A pattern without a positive count has 0 for every Y. StopFlag becomes 1 if
/// there is no ING file. Throws FatalIoError.
void IngToAsc(Ui& ui, RunState& run);

}  // namespace talven
