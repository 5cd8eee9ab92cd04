// Bringing a job's INS file, in place, to its normal form (see NormaliseIns), a raw model rewritten before.
#pragma once

#include <optional>

#include "shelx/NormaliseIns.h"
#include "textio/InputFile.h"
#include "ui/RunState.h"
#include "ui/Ui.h"

namespace talven {

/// Normalises job.INS, which is open as `ins` and is open again at its start in the end, and counts its instructions.
/// The text that is worked on, the incoming one and then the rewritten one, lies in TEST.INS meanwhile, where it stays
/// after a fatal error. Nothing if a raw model has too many labels: its text is in place again, and the file closed.
/// Throws FatalIoError.
std::optional<InsCensus> PrepareTestIns(Ui& ui, const RunState& run, InputFile& ins);

}  // namespace talven
