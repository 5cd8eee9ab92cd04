// Everything that lives as long as the process.
#pragma once

#include <memory>

#include "handlers/ComparePatterns.h"
#include "handlers/FcfToHkl.h"
#include "handlers/InsToDummyHkl.h"
#include "patterns/Reformat.h"
#include "patterns/SmallCif.h"
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
  SmallCifNames cif_names;
  OnDemand<ReformatWork> reformat;
  ComparisonSession comparison;
};

}  // namespace talven
