// What `simulate` is asked for: the fields of the form of pattern properties, and what goes beyond that form.
#pragma once

#include <CLI/App.hpp>
#include <optional>
#include <string>
#include <vector>

#include "simulation/PatternOptions.h"

namespace talven {

enum class DataSource { kFirstThere, kHkl, kFcf, kModel };

struct SimulateOptions {
  PatternOptions pattern;
  /// The working wavelength is that of the CELL line.
  bool takes_cell_wavelength = false;
  DataSource data = DataSource::kFirstThere;
  /// Equivalents by the Laue group in place of copies by signs.
  bool expands_by_symmetry = false;
  bool has_standard_heads = false;
  bool is_textbook = false;
  /// Of a textbook pattern, degrees.
  double fwhm = 0.1;
  /// In the order in which files are written: some of kSimulatedFormats.
  std::vector<std::string> formats;
};

inline constexpr const char* kSimulatedFormats[] = {"ing", "cpi", "xy", "pat", "sbrag"};

/// Adds the options. Their callbacks throw CommandLineError.
void AddSimulateOptions(CLI::App& app, SimulateOptions& options);

/// Checks what only all options together tell. Throws CommandLineError.
void CheckSimulateOptions(const CLI::App& app, SimulateOptions& options);

}  // namespace talven
