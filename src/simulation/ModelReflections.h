// Calculated reflections of a model as a list for a simulation.
#pragma once

#include <span>

#include "crystal/CellGeometry.h"
#include "crystal/CrystalModel.h"
#include "crystal/ReflectionList.h"

namespace talven {

/// The cell of a model as the simulator stores it.
UnitCell StoredCell(const CrystalModel& model);

/// Replaces the list by indices with their calculated F squared, those within reach and limits. False, with an empty
/// list, if they do not fit.
bool CalculateReflections(const CrystalModel& model, std::span<const MillerIndex> indices,
                          const ReflectionLimits& limits, ReflectionList& list);

}  // namespace talven
