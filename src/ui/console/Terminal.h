// The terminal, or what stands in its place.
#pragma once

namespace talven {

/// True if standard input is a terminal, so that a refused answer can be asked for again.
bool IsTerminalInput();

/// Opens what is closed of standard input, output and error onto nothing, so that no file of the job takes its place.
/// On Windows, where no file would, it makes lines end with LF and what is typed and shown UTF-8.
void PrepareStandardStreams();

}  // namespace talven
