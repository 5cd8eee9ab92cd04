// Option 4: the job's ING pattern at another wavelength and another step, as "NEW.ING".
#pragma once

#include "patterns/Reformat.h"
#include "ui/RunState.h"
#include "ui/Ui.h"

namespace talven {

/// Reads job.ING, asks for wavelength and step on the form of pattern properties (in a run that is not interactive:
/// 1.54 Angstrom, up to 40 degrees) and replaces NEW.ING. A step that is no multiple of 0.005 and a pattern beyond
/// 100000 rows, cells or bins are refused in a message box. StopFlag becomes 1 if there is no ING file. Throws
/// FatalIoError.
void ReformatIng(Ui& ui, RunState& run, ReformatWork& work);

}  // namespace talven
