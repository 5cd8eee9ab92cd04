// The streams of this process, and starting other programs. A command is composed as `C:\exe\kestra.exe ABC C:`: a
// program's name without blanks, then its arguments.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace talven {

/// Opens what is closed of standard input, output and error onto nothing, so that no file of the job takes its place.
/// From here on a write to a pipe that nobody reads, or beyond the largest size of a file, fails; by itself it would
/// end the process without a word.
void EnsureStandardStreams();

struct Command {
  /// Path of the program that exists.
  std::string program;
  /// What is composed behind its name, as it stands.
  std::string arguments;
};

/// Takes a composed command apart and looks for its program without regard to case, then without its `.exe`. Nothing
/// if there is no such program.
std::optional<Command> FindCommand(std::string_view command);

/// Starts a program that goes on by itself, with no terminal. False if it could not be started.
bool StartDetached(std::string_view command);

/// Starts a program and gives its exit code (128 and more after a signal), or nothing if it could not be started. It
/// gets no input, and what it prints goes to this process's standard error.
std::optional<int> RunAndWait(std::string_view command);

}  // namespace talven
