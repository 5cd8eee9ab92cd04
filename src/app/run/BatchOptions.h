// The options that all commands share, and the list of inputs that they make.
#pragma once

#include <CLI/App.hpp>
#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

namespace talven {

/// Every Nth input, beginning with the Ith.
struct Part {
  std::size_t number = 1;
  std::size_t count = 1;
};

struct BatchOptions {
  /// Inputs as they stand on the command line.
  std::vector<std::string> files;
  /// A file with the names of further inputs, `-` for standard input; empty for none.
  std::string files_from;
  bool is_list_parted_by_nul = false;
  Part part;
  /// A part was asked for, be it the only one.
  bool has_part = false;
  bool resumes = false;
  /// Folder of the outputs; empty for that of each input.
  std::string output_folder;
  bool replaces = false;
  std::size_t threads = 1;
  bool writes_json = false;
  bool is_quiet = false;
};

/// Which of the options a command takes beyond the list of inputs, `-j`, `--json` and `-q`.
struct BatchFeatures {
  std::string files_help = "input files";
  bool has_outputs = true;
  bool has_parts = true;
};

/// Adds the shared options to a command. Their callbacks throw CommandLineError.
void AddBatchOptions(CLI::App& app, const BatchFeatures& features, BatchOptions& options);

/// The inputs of a call: those on the command line, then those of the list, of which blank lines don't count. Throws
/// CommandLineError if there are none or the list can't be read.
std::vector<std::string> GatherInputs(const BatchOptions& options, std::istream& standard_input);

}  // namespace talven
