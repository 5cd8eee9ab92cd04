// The two ways into a run: started by hand, or by the suite with a job on the command line.
#pragma once

#include <cstdint>

#include "ui/RunState.h"
#include "ui/Ui.h"

namespace talven {

/// Opens the main window, settles job, drive and working directory, and shows the banner. Gives the trimmed length of
/// the first argument, 0 for a start by hand. Throws FatalIoError.
std::int32_t StartUp(Ui& ui, RunState& run);

}  // namespace talven
