// The simulator: from a job's INS and HKL or FCF files to a powder pattern in four formats.
#pragma once

#include <cstdint>

#include "simulation/SimulationData.h"
#include "ui/RunState.h"
#include "ui/Ui.h"

namespace talven {

/// The slots of PatternProperties in a simulation. Lengths in Angstrom, angles in degrees.
namespace simulation_slot {
inline constexpr std::int32_t kWavelength = 1;
inline constexpr std::int32_t kStep = 2;
/// Highest 2theta of a reflection; 0 for no limit.
inline constexpr std::int32_t kTwoThetaMax = 6;
inline constexpr std::int32_t kBroadening = 7;
/// 1 applies the powder correction, 0 does not.
inline constexpr std::int32_t kPowderCorrection = 8;
}  // namespace simulation_slot

/// Makes one whole run: reads job.INS and job.HKL (job.FCF if FcfSource is 1), asks for the parameters if the run is
/// interactive, and replaces job.ING, job.CPI, job.XY, job.PAT, SBRAG.LST and, as a scratch file that goes at the end,
/// job.TMP. StopFlag becomes 1 where an input is missing or holds no cell or no reflection. Throws FatalIoError.
void SimulatePattern(Ui& ui, RunState& run, SimulationData& data, std::int32_t FcfSource,
                     PatternProperties& properties);

}  // namespace talven
