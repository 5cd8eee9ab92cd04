// The unit cell as it was read, and its reciprocal cell, as stored 32-bit values.
#pragma once

namespace talven {

/// The one conversion constant of the simulator, in place of the exact one.
inline constexpr float kDegreesPerRadian = 57.2958F;

/// The numbers of a CELL line.
struct UnitCell {
  /// Angstrom.
  float Wavelength = 0.0F;
  /// Axis lengths, Angstrom.
  float a = 0.0F;
  float b = 0.0F;
  float c = 0.0F;
  /// Angles, degrees.
  float alpha = 0.0F;
  float beta = 0.0F;
  float gamma = 0.0F;
};

/// What follows from a cell; see DeriveReciprocalCell.
struct ReciprocalCell {
  /// Cosines of the direct angles.
  float CosAlpha = 0.0F;
  float CosBeta = 0.0F;
  float CosGamma = 0.0F;
  /// Volume of the direct cell, cubic Angstrom.
  float Volume = 0.0F;

  /// Reciprocal lengths a*, b*, c* in 1/Angstrom, their squares, and the cosines of the reciprocal angles.
  float AStar = 0.0F;
  float BStar = 0.0F;
  float CStar = 0.0F;
  float AStarSquared = 0.0F;
  float BStarSquared = 0.0F;
  float CStarSquared = 0.0F;
  float CosAlphaStar = 0.0F;
  float CosBetaStar = 0.0F;
  float CosGammaStar = 0.0F;
};

}  // namespace talven
