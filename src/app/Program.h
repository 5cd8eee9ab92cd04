// Everything that lives as long as the process.
#pragma once

#include "comparison/ComparePatterns.h"
#include "patterns/CifToIng.h"
#include "patterns/IngToTxt.h"
#include "patterns/ReformatIng.h"
#include "patterns/TxtToIng.h"
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
  CifToIngData cif_to_ing;
  ReformatData reformat;
  IngToTxtData ing_to_txt;
  TxtToIngData txt_to_ing;
  ComparisonData comparison;
};

}  // namespace talven
