// The axes of a plot: what stands along and up, and how a value becomes a place on an axis.
#pragma once

#include <string>
#include <vector>

namespace talven {

/// Along: 2theta in degrees, d in Angstrom, or Q = 4 pi sin theta / wavelength in 1/Angstrom.
enum class AlongUnit { kTwoTheta, kD, kQ };
enum class UpScale { kLinear, kSquareRoot, kLogarithm };

/// The value along for a 2theta in degrees. At 0 degrees d is infinite.
double AlongValue(AlongUnit unit, double two_theta, double wavelength);
/// The way back, 0 to 180 degrees: a value that no angle has gives the nearer end.
double TwoThetaAt(AlongUnit unit, double value, double wavelength);

/// "2θ (°)", "d (Å)" or "Q (Å⁻¹)".
std::string AlongTitle(AlongUnit unit);

struct AxisTick {
  double position = 0.0;
  std::string label;
};

/// The vertical axis. Places on it are linear on the screen whatever the scale is.
struct UpAxis {
  UpScale scale = UpScale::kLinear;
  /// The intensity that stands lowest on a logarithmic axis, for zeros and less too; above 0.
  double floor = 1.0;

  /// The square root keeps the sign.
  double Place(double intensity) const;
  double Intensity(double place) const;
  /// Round intensities between two places, about `count` of them, by rising place.
  std::vector<AxisTick> Ticks(double lower, double upper, int count) const;
};

}  // namespace talven
