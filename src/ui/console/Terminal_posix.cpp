#include <fcntl.h>
#include <unistd.h>

#include "ui/console/Terminal.h"

namespace talven {

bool IsTerminalInput() {
  return isatty(STDIN_FILENO) == 1;
}

void PrepareStandardStreams() {
  for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
    // The lowest descriptor that is free is this one, since those below it are open by now.
    if (fcntl(stream, F_GETFD) == -1) open("/dev/null", stream == STDIN_FILENO ? O_RDONLY : O_WRONLY);
  }
}

}  // namespace talven
