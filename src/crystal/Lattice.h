// The unit cell in double precision, with its metric.
#pragma once

#include <array>
#include <cstdint>

namespace talven {

/// Metric tensor: 11, 22, 33, 23, 13, 12.
using Metric = std::array<double, 6>;
using Vector3 = std::array<double, 3>;

struct Lattice {
  /// Angstrom.
  double a = 0.0;
  double b = 0.0;
  double c = 0.0;
  /// Degrees.
  double alpha = 90.0;
  double beta = 90.0;
  double gamma = 90.0;

  /// True for lengths above 0 and angles that span a volume: the other functions need it.
  bool IsValid() const;
  /// Cubic Angstrom.
  double Volume() const;
  /// Squares and products of the axes, square Angstrom.
  Metric DirectMetric() const;
  /// The same of the reciprocal axes, 1/square Angstrom.
  Metric ReciprocalMetric() const;
};

/// The length squared of a vector whose components refer to the axes of a metric. For h k l and the reciprocal metric
/// it is 1/d squared.
inline double SquaredLength(const Metric& metric, double u, double v, double w) {
  return metric[0] * u * u + metric[1] * v * v + metric[2] * w * w +
         2.0 * (metric[3] * v * w + metric[4] * u * w + metric[5] * u * v);
}

/// 1/d squared of h k l, 1/square Angstrom. In a loop SquaredLength with the metric at hand is quicker.
double InverseSquareSpacing(const Lattice& lattice, std::int32_t h, std::int32_t k, std::int32_t l);

/// 2theta in degrees by Bragg's law; nothing that a wavelength reaches (lambda/2d above 1) is 180.
double TwoThetaOf(double inverse_square_spacing, double wavelength);

/// 1/d squared at an angle 2theta in degrees.
double InverseSquareSpacingAt(double two_theta, double wavelength);

}  // namespace talven
