// The terminal program on the streams that it is given.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace talven {

/// What a terminal session reads and writes.
struct ConsoleStreams {
  std::istream& input;
  std::ostream& output;
  std::ostream& messages;
  /// A person sits at the input: a refused answer can be given again.
  bool is_interactive = false;
};

/// Runs the whole program and gives the exit code of the process. `arguments` has the program's own path first.
int RunConsole(const std::vector<std::string>& arguments, const ConsoleStreams& streams);

}  // namespace talven
