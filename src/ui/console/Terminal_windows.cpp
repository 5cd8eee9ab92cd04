#include <io.h>

#include "ui/console/Terminal.h"

namespace talven {

bool IsTerminalInput() {
  return _isatty(0) != 0;
}

void EnsureStandardStreams() {}  // Files take no descriptors of the streams here.

}  // namespace talven
