// The files that a handler reads for its job.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "textio/InputFile.h"
#include "ui/RunState.h"
#include "ui/Ui.h"

namespace talven {

/// Opens the job's file with an extension such as ".ING". If there is none, says "ING File NOT Found" in a message box,
/// sets StopFlag to 1 and gives false. `told_as` stands for "ING File" where another text is told.
bool OpenJobInput(Ui& ui, RunState& run, std::string_view extension, InputFile& file, std::string_view told_as = {});

/// Hands what is the matter with a file on to the user, if anything is.
inline void TellHint(Ui& ui, const std::optional<std::string>& hint) {
  if (hint) ui.toolkit.TellHint(*hint);
}

}  // namespace talven
