// Options 2, 3, 8 and 9: the conversions of pattern files that ask nothing. Each sets StopFlag to 1 if its input is not
// there, and throws FatalIoError for one that cannot be read on; what was read before is written.
#pragma once

#include "patterns/SmallCif.h"
#include "ui/RunState.h"
#include "ui/Ui.h"

namespace talven {

/// From job.CIF to job.ING. A CIF without all five names leaves a title alone, one without the loop a head without
/// rows, and neither is reported. On purpose the names outlive the call.
void CifToIng(Ui& ui, RunState& run, SmallCifNames& names);

/// From job.ING to NEW.CIF. An ING file that ends early gives a short loop.
void IngToCif(Ui& ui, RunState& run);

/// From job.ING to job.TXT, as the Unscrambler package takes it. More than 30000 points, or none, are refused in a
/// message box and leave an empty file. A file with too few rows cannot be read.
void IngToTxt(Ui& ui, RunState& run);

/// From job.TXT, a plain table of X and Y, to job.ING.
void TxtToIng(Ui& ui, RunState& run);

}  // namespace talven
