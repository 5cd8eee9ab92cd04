// The options of a simulation: asked for on the form of pattern properties, or the fixed set of an unattended run.
#pragma once

#include "simulation/PatternOptions.h"
#include "ui/Ui.h"

namespace talven {

/// Shows the form with a wavelength, Angstrom, and takes the options from it. On purpose: with the radio button on Cu
/// or Mo the wavelength of the form is passed over.
PatternOptions AskPatternOptions(Toolkit& toolkit, float wavelength);

/// Copper radiation, 4 to 40 degrees in steps of 0.05, everything ticked.
PatternOptions FixedPatternOptions();

}  // namespace talven
