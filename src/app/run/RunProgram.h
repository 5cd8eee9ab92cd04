// The program talven-run on the streams that it is given.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/run/BatchCommand.h"

namespace talven {

using Commands = std::vector<std::unique_ptr<BatchCommand>>;

/// Runs the whole program and gives the exit code of the process: 0 all done, 1 some inputs failed, 2 a bad command
/// line, 128 and the number of a signal after one. `arguments` has the program's own path first, `commands` are in the
/// order of the help.
int RunTalvenRun(const std::vector<std::string>& arguments, const RunStreams& streams, Commands commands);

}  // namespace talven
