// The program in a window.
#pragma once

#include <string>
#include <vector>

namespace talven {

/// Runs the whole program and gives the exit code of the process. `arguments` has the program's own full path first.
/// Needs a DesktopSession.
int RunDesktop(const std::vector<std::string>& arguments);

}  // namespace talven
