// The parameters of a simulation: asked for on the form of pattern properties, or the fixed set of an unattended run.
#pragma once

#include "ui/RunState.h"
#include "ui/Ui.h"

namespace talven {

/// The parameters that have no slot in PatternProperties.
struct PatternSettings {
  /// Low end of the grid, degrees.
  float TwoThetaMin = 0.0F;
  bool SymmetricalPeaks = false;
  bool HemisphereExpansion = false;
};

/// Shows the form with the wavelength that stands in the properties, and fills the properties from it. On purpose: with
/// the radio button on Cu or Mo the wavelength of the form is passed over.
PatternSettings AskPatternSettings(Ui& ui, PatternProperties& properties);

/// Copper radiation, 4 to 40 degrees in steps of 0.05, everything ticked.
PatternSettings FixedPatternSettings(PatternProperties& properties);

}  // namespace talven
