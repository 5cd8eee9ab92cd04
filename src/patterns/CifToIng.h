// From the job's powder CIF to its ING pattern. No parser of CIF: five data names at the start of a line and then, at
// once, one loop of counts, as NEW.CIF has them.
#pragma once

#include <array>

#include "patterns/ing/IngHeader.h"
#include "ui/RunState.h"
#include "ui/Ui.h"

namespace talven {

struct CifToIngData {
  /// What the five names gave. On purpose both outlive the call: a second run starts with all that the first found.
  IngHeader header;
  std::array<bool, 5> seen{};
};

/// Reads job.CIF and replaces job.ING. A CIF without all five names leaves a title alone, one without the loop a head
/// without rows, and neither is reported. StopFlag becomes 1 if there is no CIF. Throws FatalIoError.
void CifToIng(Ui& ui, RunState& run, CifToIngData& data);

}  // namespace talven
