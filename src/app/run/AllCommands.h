// Which commands there are.
#pragma once

#include "app/run/RunProgram.h"

namespace talven {

/// All commands, in the order of the help.
Commands AllCommands();

}  // namespace talven
