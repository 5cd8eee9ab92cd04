// The files of a simulated pattern, by the names of their formats.
#pragma once

#include <string>
#include <string_view>

#include "simulation/Simulation.h"
#include "textio/CalendarTime.h"
#include "textio/TextOutput.h"

namespace talven {

/// What the heads say beside the pattern.
struct SimulatedFileHead {
  std::string_view job_name;
  /// The end of the classic heads, degrees.
  double end_value = 0.0;
  CalendarDate date;
  ClockTime time;
  /// Heads that other programs read right: CPI and PAT with the real first angle, XY with none.
  bool is_standard = false;
};

/// Writes one file of a pattern: `ing`, `cpi`, `xy`, `pat` or `sbrag`.
void WriteSimulatedFile(std::string_view format, const SimulatedFileHead& head, const SimulationData& data,
                        TextOutput& output);

}  // namespace talven
