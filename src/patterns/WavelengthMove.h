// A pattern moved from one wavelength to another by Bragg's law: the spacing d of a reflection stays, so
// sin(theta) / wavelength does.
#pragma once

#include "patterns/ing/IngHeader.h"

namespace talven {

struct WavelengthMove {
  float OldWavelength = 0.0F;
  float NewWavelength = 0.0F;

  /// True if the wavelengths differ by more than 0.001 Angstrom. Otherwise angles are not touched.
  bool MovesAngles() const;

  /// Highest theta, degrees, that may be moved: 170 unless the wavelength grows.
  float LimitAngle() const;

  /// An angle at the new wavelength: from theta to 2 theta, both in degrees.
  float Move(double theta) const;

  /// Moves both angles of a head. Where the last one has no place at the new wavelength its sine becomes 0.95.
  void MoveRange(IngHeader& header) const;
};

}  // namespace talven
