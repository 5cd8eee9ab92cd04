// The automatic mode after the dummy list: refinement, its calculated data as a reflection list, and the pattern.
#pragma once

#include "handlers/FcfToHkl.h"
#include "simulation/Simulation.h"
#include "ui/RunState.h"
#include "ui/Ui.h"

namespace talven {

/// Copies DUMMY.HKL to job.HKL, runs the refinement executable on the job and waits for it, copies the list made from
/// its FCF to job.HKL again and simulates the pattern. On purpose nothing stops the sequence: without an FCF the
/// pattern is that of the dummy list. StopFlag is left as the steps set it. Throws FatalIoError.
void AutomaticRun(Ui& ui, RunState& run, FcfToHklData& fcf_to_hkl, SimulationData& simulation);

}  // namespace talven
