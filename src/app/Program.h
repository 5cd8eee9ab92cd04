// Everything that lives as long as the process.
#pragma once

#include "shelx/FcfToHkl.h"
#include "shelx/InsToDummyHkl.h"
#include "simulation/SimulationData.h"
#include "ui/RunState.h"

namespace talven {

/// The run and the working data of every handler. Handlers keep their data from one call to the next.
struct Program {
  RunState run;
  SimulationData simulation;
  InsToDummyHklData ins_to_dummy_hkl;
  FcfToHklData fcf_to_hkl;
};

}  // namespace talven
