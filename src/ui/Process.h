// The streams of this process, and starting other programs.
#pragma once

#include <optional>

#include "ui/CommandLookup.h"

namespace talven {

/// Opens what is closed of standard input, output and error onto nothing, so that no file of the job takes its place.
/// From here on a write to a pipe that nobody reads, or beyond the largest size of a file, fails; by itself it would
/// end the process without a word.
void EnsureStandardStreams();

/// True where a program that is started could show a window.
bool HasDisplay();

/// Starts a program that goes on by itself, with no terminal. False if it could not be started.
bool StartDetached(const Command& command);

/// Starts a program and gives its exit code (128 and more after a signal), or nothing if it could not be started. It
/// gets no input, and what it prints goes to this process's standard error.
std::optional<int> RunAndWait(const Command& command);

}  // namespace talven
