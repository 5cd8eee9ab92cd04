// Option 5: from the INS file of a structure without data to DUMMY.HKL, a list of reflections for SHELXL to calculate;
// in the automatic mode on to the pattern.
#pragma once

#include "crystal/UnitCell.h"
#include "handlers/FcfToHkl.h"
#include "simulation/Simulation.h"
#include "ui/RunState.h"
#include "ui/Ui.h"

namespace talven {

struct InsToDummyHklData {
  /// Kept from run to run: an INS without a CELL line gets the cell of the run before.
  talven::UnitCell UnitCell;
};

/// Replaces DUMMY.HKL by a list from the cell of job.INS, and folds the job name to upper case. A run with the job name
/// VRAIL or a WMIN marker in the INS is automatic: AutoState is 2 at its end, else 0, and a RunMode of 1 becomes 2.
/// Before such a run the INS is normalised in place, unless it bears the marker of a rewritten one; if it is unsuitable
/// then, or missing, StopFlag becomes 1. Throws FatalIoError.
void InsToDummyHkl(Ui& ui, RunState& run, InsToDummyHklData& data, FcfToHklData& fcf_to_hkl,
                   SimulationData& simulation);

}  // namespace talven
