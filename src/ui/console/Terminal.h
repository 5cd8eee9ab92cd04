// Whether a person sits at the terminal.
#pragma once

namespace talven {

/// True if standard input is a terminal, so that a refused answer can be asked for again.
bool IsTerminalInput();

}  // namespace talven
