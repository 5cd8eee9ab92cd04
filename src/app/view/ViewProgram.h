// talven-view: a pattern in a window of its own, a picture of it, or its peaks.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace talven {

/// Runs the whole program and gives the exit code of the process. `arguments` has the program's own full path first;
/// `argv` is that of the process.
int RunView(const std::vector<std::string>& arguments, char** argv, std::ostream& output, std::ostream& messages);

}  // namespace talven
