// A whole simulation in memory: from a cell and its reflections to a finished powder pattern.
#pragma once

#include <cstdint>
#include <optional>

#include "crystal/Pattern.h"
#include "crystal/ReflectionList.h"
#include "crystal/UnitCell.h"
#include "simulation/PatternOptions.h"
#include "simulation/ProfileSynthesis.h"

namespace talven {

/// What a simulation works on, lent by the caller: the next one in the same data makes no arrays anew. Nothing that it
/// holds is used by a later one, but for the range of the list where the caller keeps that.
struct SimulationData {
  ReflectionList list;
  SynthesisData synthesis;
  Pattern pattern;
};

enum class SimulationOutcome {
  kFinished,
  kNoReflections,
  kTooManyPoints,  // more than kLargestPointCount
  kNoPoints,       // no reflection lies above TwoThetaMin
  kWideBinSum,
};

/// What was noticed on the way.
struct SimulationResult {
  SimulationOutcome outcome = SimulationOutcome::kFinished;
  /// The list had no room for all copies of the expansion.
  bool limit_met = false;
  /// Entries of the list after the expansion, before equal ones were merged.
  std::int32_t ExpandedCount = 0;
  GridExtent extent;
  /// There if that is the outcome.
  std::optional<WideBinSum> wide_bin_sum;
};

/// Expands and merges the list in place, whose angles are those of the wavelength of the options, and makes the
/// pattern: its wavelength and steps in any case, its points if the outcome is that. Its title is left to the caller.
SimulationResult Simulate(const UnitCell& cell, const PatternOptions& options, SimulationData& data);

}  // namespace talven
