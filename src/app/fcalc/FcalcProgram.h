// The program that fills the refinement program's place in an automatic run: no refinement, only F squared of the model
// for the reflections that are asked for.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace talven {

/// `arguments` are those of the process, the program's own path first: JOB, and as an automatic run adds them the drive
/// and AUTO. Reads JOB.INS and JOB.HKL in the current directory and leaves JOB.fcf. Gives the exit code: 0, 1 after an
/// input that can't be read or an output that can't be written, 2 for another command line. Only what `--help` and
/// `--version` answer goes to `output`.
int RunFcalc(const std::vector<std::string>& arguments, std::ostream& output, std::ostream& messages);

}  // namespace talven
