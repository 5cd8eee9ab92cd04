// The program in a window.
#pragma once

#include "app/desktop/DesktopStart.h"

namespace talven {

/// Runs the whole program and gives the exit code of the process. Needs a DesktopSession.
int RunDesktop(const DesktopStart& start);

}  // namespace talven
