// What both programs do with their command line before anything else happens.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace talven {

/// The arguments of the process with the program's own path first, which is made absolute since it begins with the
/// drive. Empty ones don't count.
std::vector<std::string> CommandArguments(int argc, const char* const* argv);

/// Answers `--help` and `--version`, each as the only argument, and refuses a job name of more than 20 characters.
/// Gives the exit code if the program ends with that.
std::optional<int> AnswerCommandLine(std::string_view program, const std::vector<std::string>& arguments,
                                     std::ostream& output, std::ostream& messages);

}  // namespace talven
