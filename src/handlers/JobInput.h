// The files that a handler reads for its job.
#pragma once

#include <string_view>

#include "textio/InputFile.h"
#include "ui/RunState.h"
#include "ui/Ui.h"

namespace talven {

/// Opens the job's file with an extension such as ".ING". If there is none, says "ING File NOT Found" in a message box,
/// sets StopFlag to 1 and gives false. `told_as` stands for "ING File" where another text is told.
bool OpenJobInput(Ui& ui, RunState& run, std::string_view extension, InputFile& file, std::string_view told_as = {});

}  // namespace talven
