// Patterns as inputs of commands: read by the registry, with a wavelength from the command line.
#pragma once

#include <CLI/App.hpp>
#include <optional>
#include <string>
#include <vector>

#include "app/run/InputPath.h"
#include "patterns/PatternFormats.h"

namespace talven {

/// Which scan is read of a file that holds several, and the wavelength that wins over that of the file, Angstrom.
struct PatternInputOptions {
  std::optional<int> scan;
  std::optional<float> wavelength;
};

/// Adds `--scan`, and the option for the wavelength under a name.
void AddPatternInputOptions(CLI::App& app, const std::string& wavelength_name, PatternInputOptions& options);

/// Reads a pattern, with what was noticed on the way. Throws FatalIoError.
PatternFile ReadInputPattern(const InputPath& input, const PatternInputOptions& options);

/// The pattern as an ING file: the bytes of the input where it is one, else what its pattern makes. `job` stands in the
/// head where the pattern has no title. Throws FatalIoError, also for a pattern without a wavelength.
std::string IngTextOf(const InputPath& input, const PatternFile& file, const PatternInputOptions& options);

}  // namespace talven
