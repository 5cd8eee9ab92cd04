#include "crystal/Lattice.h"

#include <cmath>
#include <numbers>

namespace talven {
namespace {

constexpr double kRadiansPerDegree = std::numbers::pi / 180.0;

/// Cosine of an angle in degrees, exact at right angles: no orthogonal axes get a product that is not 0.
double CosineOfDegrees(double degrees) {
  return degrees == 90.0 ? 0.0 : std::cos(degrees * kRadiansPerDegree);
}

double Determinant(const Metric& g) {
  return g[0] * g[1] * g[2] + 2.0 * g[3] * g[4] * g[5] - g[0] * g[3] * g[3] - g[1] * g[4] * g[4] - g[2] * g[5] * g[5];
}

bool IsAngle(double degrees) {
  return degrees > 0.0 && degrees < 180.0;
}

}  // namespace

bool Lattice::IsValid() const {
  if (!(a > 0.0 && b > 0.0 && c > 0.0) || !IsAngle(alpha) || !IsAngle(beta) || !IsAngle(gamma)) return false;
  const double cube = a * b * c;
  // Flatter than any crystal: the angles span hardly a volume.
  return std::isfinite(cube) && Determinant(DirectMetric()) > 1e-8 * cube * cube;
}

double Lattice::Volume() const {
  return std::sqrt(Determinant(DirectMetric()));
}

Metric Lattice::DirectMetric() const {
  return {a * a,
          b * b,
          c * c,
          b * c * CosineOfDegrees(alpha),
          a * c * CosineOfDegrees(beta),
          a * b * CosineOfDegrees(gamma)};
}

Metric Lattice::ReciprocalMetric() const {
  const Metric g = DirectMetric();
  const double factor = 1.0 / Determinant(g);
  return {factor * (g[1] * g[2] - g[3] * g[3]), factor * (g[0] * g[2] - g[4] * g[4]),
          factor * (g[0] * g[1] - g[5] * g[5]), factor * (g[4] * g[5] - g[0] * g[3]),
          factor * (g[3] * g[5] - g[1] * g[4]), factor * (g[3] * g[4] - g[2] * g[5])};
}

double InverseSquareSpacing(const Lattice& lattice, std::int32_t h, std::int32_t k, std::int32_t l) {
  return SquaredLength(lattice.ReciprocalMetric(), h, k, l);
}

double TwoThetaOf(double inverse_square_spacing, double wavelength) {
  const double sine = 0.5 * wavelength * std::sqrt(inverse_square_spacing);
  return sine < 1.0 ? 2.0 * std::asin(sine) / kRadiansPerDegree : 180.0;
}

double InverseSquareSpacingAt(double two_theta, double wavelength) {
  const double inverse = 2.0 * std::sin(0.5 * two_theta * kRadiansPerDegree) / wavelength;
  return inverse * inverse;
}

}  // namespace talven
