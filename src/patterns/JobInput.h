// The opening of a converter's input file.
#pragma once

#include <string_view>

#include "textio/InputFile.h"
#include "ui/RunState.h"
#include "ui/Ui.h"

namespace talven {

/// Opens the job's file of a kind such as "ING", which is its extension too. If there is none, says so in a message
/// box, sets StopFlag to 1 and gives false.
bool OpenJobInput(Ui& ui, RunState& run, std::string_view extension, InputFile& file);

}  // namespace talven
