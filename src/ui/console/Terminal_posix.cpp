#include <unistd.h>

#include "ui/console/Terminal.h"

namespace talven {

bool IsTerminalInput() {
  return isatty(STDIN_FILENO) == 1;
}

bool IsTerminalMessages() {
  return isatty(STDERR_FILENO) == 1;
}

void PrepareTerminal() {}

}  // namespace talven
