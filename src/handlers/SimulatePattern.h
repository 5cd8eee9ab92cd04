// Options 1 and 7: from a job's INS and HKL or FCF files to a powder pattern in four formats.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "shelx/FcfListCode.h"
#include "shelx/ReadReflections.h"
#include "simulation/Simulation.h"
#include "ui/RunState.h"
#include "ui/Ui.h"

namespace talven {

/// Where the reflections come from.
struct SimulationSource {
  std::string_view extension;
  std::string_view no_reflections;
  ReflectionReading (&Read)(TextInput&, const ReciprocalCell&, const ReflectionLimits&, ReflectionList&);
  /// What is the matter with a file, by its name and text; none where nothing can be told.
  std::optional<std::string> (*Hint)(std::string_view, std::string_view);
};
inline constexpr SimulationSource kHklSource{".HKL", "NO Reflections in HKL File", ReadHklReflections, nullptr};
inline constexpr SimulationSource kFcfSource{".FCF", "NO Reflections in FCF File", ReadFcfReflections, HintForFcf};

/// Makes one whole run: reads job.INS and the job's reflections, asks for the options if the run is interactive, and
/// replaces job.ING, job.CPI, job.XY, job.PAT, SBRAG.LST and, as a scratch file that goes at the end, job.TMP. StopFlag
/// becomes 1 where an input is missing or holds no cell or no reflection. Throws FatalIoError.
void SimulatePattern(Ui& ui, RunState& run, SimulationData& data, const SimulationSource& source);

}  // namespace talven
