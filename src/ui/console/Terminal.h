// The terminal, or what stands in its place.
#pragma once

namespace talven {

/// True if standard input is a terminal, so that a refused answer can be asked for again.
bool IsTerminalInput();
/// True if standard error is a terminal, so that a progress line can be drawn over.
bool IsTerminalMessages();

/// Makes lines end with LF on Windows too, and what is typed and shown on a console there UTF-8.
void PrepareTerminal();

}  // namespace talven
