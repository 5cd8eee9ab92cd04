#include <io.h>

#include "ui/console/Terminal.h"

namespace talven {

bool IsTerminalInput() {
  return _isatty(0) != 0;
}

}  // namespace talven
