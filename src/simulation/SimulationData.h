// Everything that a simulation works on. It lives as long as the process and keeps its contents from run to run, but
// for what a run sets itself.
#pragma once

#include "crystal/ReflectionList.h"
#include "crystal/UnitCell.h"
#include "simulation/PatternGrid.h"
#include "simulation/ProfileSynthesis.h"

namespace talven {

struct SimulationData {
  UnitCell cell;
  ReflectionList list;
  IndexRange range;
  PatternGrid grid;
  SynthesisData synthesis;
};

}  // namespace talven
