// Whether a person sits at the terminal.
#pragma once

namespace talven {

/// True if standard input is a terminal, so that a refused answer can be asked for again.
bool IsTerminalInput();

/// Opens what is closed of standard input, output and error onto nothing, so that no file of the job takes its place.
void EnsureStandardStreams();

}  // namespace talven
