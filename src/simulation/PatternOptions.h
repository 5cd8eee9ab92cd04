// What a simulation is asked for, with the defaults of the form of pattern properties.
#pragma once

#include "crystal/ReflectionList.h"

namespace talven {

struct PatternOptions {
  /// Angstrom.
  float Wavelength = 1.54F;
  /// Of the grid, degrees.
  float Step = 0.05F;
  /// Low end of the grid, degrees.
  float TwoThetaMin = 4.0F;
  /// Highest 2theta of a reflection, degrees; 0 for no limit.
  float TwoThetaMax = 0.0F;
  /// Decay length of the low-angle tails, in grid points; held to 1 to 10.
  float Broadening = 1.0F;
  bool PowderCorrection = true;
  bool SymmetricalPeaks = true;
  bool HemisphereExpansion = true;

  ReflectionLimits Limits() const { return {Wavelength, TwoThetaMax}; }
};

}  // namespace talven
