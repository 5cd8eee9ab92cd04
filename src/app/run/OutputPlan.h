// Where the outputs of a call go, and the guards that nothing of the user's is lost by that.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "app/run/InputPath.h"

namespace talven {

/// What decides about the outputs of a call.
struct OutputRules {
  /// Folder of all outputs; empty for that of each input.
  std::string folder;
  /// Outputs may replace inputs and files of kinds that are brought in from elsewhere.
  bool replaces = false;
  /// Inputs whose outputs are newer than their sources are left alone.
  bool resumes = false;
  /// Names of the outputs of an input, without a folder.
  std::function<std::vector<std::string>(const InputPath&)> names;
  /// Paths of all files that an input's outputs are made of.
  std::function<std::vector<std::string>(const InputPath&)> sources;
};

/// An input with the paths of its outputs.
struct PlannedInput {
  InputPath input;
  std::vector<std::string> outputs;
  /// All outputs are there already, newer than what they are made of.
  bool is_done = false;
};

/// Plans the outputs of the inputs that `is_own` chooses by their place in the list: an existing file whose name
/// differs in case only is the one that is replaced. Throws CommandLineError if two inputs of the list would write the
/// same output, or where an output would replace what it may not.
std::vector<PlannedInput> PlanOutputs(const std::vector<std::string>& inputs,
                                      const std::function<bool(std::size_t)>& is_own, const OutputRules& rules);

/// Throws CommandLineError if a single output of a whole call, given by the name of its option, is one of the inputs or
/// of a kind that is brought in from elsewhere and exists.
void CheckCommonOutput(std::string_view option, const std::string& output, const std::vector<std::string>& inputs);

}  // namespace talven
