// One job of `simulate`: from its files to a pattern in memory.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/run/InputPath.h"
#include "app/run/SimulateOptions.h"
#include "simulation/Simulation.h"

namespace talven {

/// The files of a job that are read.
struct SimulateFiles {
  DataSource source = DataSource::kModel;
  /// INS, RES or CIF; nothing if there is none.
  std::optional<std::string> model;
  /// HKL or FCF; nothing if there is none or none is wanted.
  std::optional<std::string> reflections;
};

/// Finds them. The file that names the job is taken where it is of a kind that is wanted.
SimulateFiles FindSimulateFiles(const InputPath& input, DataSource wanted);

/// What was made of a job beside its pattern and its list, which stand in the working data.
struct SimulatedJob {
  DataSource source = DataSource::kModel;
  PatternOptions options;
  SimulationResult result;
  std::int32_t rows = 0;
  std::int32_t kept = 0;
  /// Lines of a list that was expanded by symmetry.
  std::optional<std::int32_t> unique;
  /// Angstrom; 0 where none is told.
  float file_wavelength = 0.0F;
  std::vector<std::string> notices;
};

/// Makes the pattern of a job. Throws FatalIoError where there can be none.
SimulatedJob SimulateJob(const InputPath& input, const SimulateOptions& options, SimulationData& data);

}  // namespace talven
