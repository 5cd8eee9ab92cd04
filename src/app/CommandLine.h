// What the programs do with their command line before anything else happens.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace talven {

/// The arguments of the process in UTF-8, with the program's own full path first, since it begins with the drive. The
/// system itself is asked where what `main` gets is less than that.
std::vector<std::string> ProcessArguments(int argc, const char* const* argv);

/// The same without the empty ones, which don't count.
std::vector<std::string> CommandArguments(int argc, const char* const* argv);

/// Answers `--help`, `-h` and `--version` as first argument, and refuses any other that begins with `-`, and a job name
/// of more than 20 characters. Gives the exit code if the program ends with that.
std::optional<int> AnswerCommandLine(std::string_view program, const std::vector<std::string>& arguments,
                                     std::ostream& output, std::ostream& messages);

}  // namespace talven
