// The forms in which the user sets the index limits and chooses the general absence.
#pragma once

#include "shelx/DummyReflections.h"
#include "ui/Ui.h"

namespace talven {

/// Shows the limits, takes them as they are set, and asks for the lattice if absences are to be removed.
AbsenceRule AskLimitsAndAbsence(Ui& ui, HklLimits& limits);

}  // namespace talven
