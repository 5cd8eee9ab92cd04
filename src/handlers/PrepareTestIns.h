// Bringing a job's INS file, in place, to its normal form (see NormaliseIns), a raw model rewritten before.
#pragma once

#include <optional>
#include <string_view>

#include "shelx/NormaliseIns.h"
#include "ui/RunState.h"
#include "ui/Ui.h"

namespace talven {

inline constexpr std::string_view kTestIns = "TEST.INS";

/// Normalises job.INS and counts its instructions. The text that is worked on, the incoming one and then the rewritten
/// one, lies in TEST.INS meanwhile, where it stays after a fatal error; otherwise it is for the caller to delete once
/// job.INS has been read anew. Nothing if a raw model has too many labels: its text is in place again, and TEST.INS
/// gone. Throws FatalIoError.
std::optional<InsCensus> PrepareTestIns(Ui& ui, const RunState& run);

}  // namespace talven
