// Everything that lives as long as the process.
#pragma once

#include <memory>

#include "comparison/ComparePatterns.h"
#include "handlers/FcfToHkl.h"
#include "handlers/InsToDummyHkl.h"
#include "patterns/CifToIng.h"
#include "patterns/IngToTxt.h"
#include "patterns/ReformatIng.h"
#include "patterns/TxtToIng.h"
#include "simulation/Simulation.h"
#include "ui/RunState.h"

namespace talven {

/// Data that is made at its first use and kept from then on: to clear all the arrays takes longer than most runs.
template <typename Data>
class OnDemand {
 public:
  Data& operator*() {
    if (!data_) data_ = std::make_unique<Data>();
    return *data_;
  }

 private:
  std::unique_ptr<Data> data_;
};

/// The run and the working data of every handler. Handlers keep their data from one call to the next.
struct Program {
  RunState run;
  OnDemand<SimulationData> simulation;
  InsToDummyHklData ins_to_dummy_hkl;
  FcfToHklData fcf_to_hkl;
  CifToIngData cif_to_ing;
  OnDemand<ReformatData> reformat;
  OnDemand<IngToTxtData> ing_to_txt;
  OnDemand<TxtToIngData> txt_to_ing;
  ComparisonData comparison;
};

}  // namespace talven
