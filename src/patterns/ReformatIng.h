// The job's ING pattern at another wavelength and another step, as "NEW.ING".
#pragma once

#include "patterns/FineGrid.h"
#include "ui/RunState.h"
#include "ui/Ui.h"

namespace talven {

/// Slots of PatternProperties as the reformatter uses them.
namespace reformat_slot {
inline constexpr std::int32_t kOldWavelength = 1;
inline constexpr std::int32_t kNewWavelength = 2;
inline constexpr std::int32_t kOldStep = 3;
inline constexpr std::int32_t kNewStep = 4;
inline constexpr std::int32_t kFineStep = 5;
}  // namespace reformat_slot

/// On purpose nothing here is cleared at the start of a run: cells that a pattern does not set keep what the last one
/// left, and a step that suits neither grid takes the last one.
struct ReformatData {
  /// Step of the working grid, degrees; 0 before the first run.
  float FineStep = 0.0F;
  /// First the rows of the file, later those of the output.
  ReformatArray X;
  ReformatArray Y;
  /// Angles of the cells of the working grid, degrees.
  ReformatArray FineGrid;
  CellCounts FineCounts;
};

/// Reads job.ING, asks for wavelength and step on the form of pattern properties (in a run that is not interactive:
/// 1.54 Angstrom, up to 40 degrees) and replaces NEW.ING. A step that is no multiple of 0.005 and a pattern beyond
/// 100000 rows, cells or bins are refused in a message box. StopFlag becomes 1 if there is no ING file. Throws
/// FatalIoError.
void ReformatIng(Ui& ui, RunState& run, ReformatData& data, PatternProperties& properties);

}  // namespace talven
