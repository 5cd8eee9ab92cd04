#include "simulation/Simulation.h"

#include "crystal/CellGeometry.h"
#include "simulation/PrepareReflections.h"

namespace talven {
namespace {

/// Degrees by which an angle may miss 90 and yet count as that.
constexpr double kAngleTolerance = 0.01;

/// In no unit: nothing was counted.
constexpr double kStepTime = 1000.0;

/// Nothing if the synthesis can be made.
std::optional<SimulationOutcome> Refusal(const GridExtent& extent) {
  if (extent.PointCount > kLargestPointCount) return SimulationOutcome::kTooManyPoints;
  if (extent.PointCount < 1) return SimulationOutcome::kNoPoints;
  return std::nullopt;
}

/// What the pattern tells of itself before it has points.
void BeginPattern(const PatternOptions& options, Pattern& pattern) {
  pattern.two_theta.clear();
  pattern.counts.clear();
  pattern.reflections.clear();
  pattern.step = options.Step;
  pattern.step_time = kStepTime;
  pattern.wavelength = options.Wavelength;
}

}  // namespace

SimulationResult Simulate(const UnitCell& cell, const PatternOptions& options, SimulationData& data) {
  ReflectionList& list = data.list;
  SimulationResult result;
  BeginPattern(options, data.pattern);
  if (list.ReflectionCount == 0) {
    result.outcome = SimulationOutcome::kNoReflections;
    return result;
  }
  if (options.HemisphereExpansion)
    result.limit_met =
        !ExpandHemisphere(ClassifyCell(cell, kAngleTolerance), DeriveReciprocalCell(cell), options.Limits(), list);
  result.ExpandedCount = list.ReflectionCount;
  RemoveDuplicates(list);
  result.extent = SizeGrid(HighestTwoTheta(list), options);
  if (const auto refusal = Refusal(result.extent)) {
    result.outcome = *refusal;
    return result;
  }
  data.synthesis.PointCount = result.extent.PointCount;
  result.wide_bin_sum = BinReflections(list, options, data.synthesis);
  if (result.wide_bin_sum) {
    result.outcome = SimulationOutcome::kWideBinSum;
    return result;
  }
  BroadenPeaks(options, data.synthesis);
  ApplyPowderCorrection(options, data.synthesis);
  FinishIntensities(data.synthesis);
  FillPoints(list, data.synthesis, data.pattern);
  return result;
}

}  // namespace talven
