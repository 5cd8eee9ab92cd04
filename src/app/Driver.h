// The life of the program: start-up, option loop and exit path.
#pragma once

#include "app/Program.h"
#include "ui/Ui.h"

namespace talven {

/// Runs the program to its end and gives the exit code of the process. Throws FatalIoError.
int RunDriver(Ui& ui, Program& program);

}  // namespace talven
