#include "crystal/CrystalModel.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace talven {
namespace {

double Distance(const Vector3& a, const Vector3& b, const Metric& metric) {
  return std::sqrt(SquaredLength(metric, a[0] - b[0], a[1] - b[1], a[2] - b[2]));
}

/// The image of a position under an operator, moved by whole cells to where it is nearest.
Vector3 NearestImage(const SymmetryOperator& by, const Vector3& position) {
  Vector3 image = by.Apply(position);
  for (std::size_t i = 0; i < 3; ++i) image[i] += std::round(position[i] - image[i]);
  return image;
}

/// The nearest point that an operator, applied again and again, leaves where it is; nothing for a screw axis, a glide
/// plane, or what never comes back. No rotation of a crystal has an order above 6.
std::optional<Vector3> NearestFixedPoint(const SymmetryOperator& by, const Vector3& position) {
  constexpr int kHighestOrder = 6;
  const Vector3 plain = by.Apply(position);
  const Vector3 nearest = NearestImage(by, position);
  Vector3 sum = position;
  Vector3 image = nearest;
  SymmetryOperator power = by;
  for (int order = 2; order <= kHighestOrder; ++order) {
    for (std::size_t i = 0; i < 3; ++i) sum[i] += image[i];
    Vector3 next = by.Apply(image);
    for (std::size_t i = 0; i < 3; ++i) next[i] += nearest[i] - plain[i];
    image = next;
    power = by.After(power);
    if (power.rotation != SymmetryOperator{}.rotation) continue;
    for (std::size_t i = 0; i < 3; ++i) {
      if (std::fabs(image[i] - position[i]) > 1e-6) return std::nullopt;
      sum[i] /= order;
    }
    return sum;
  }
  return std::nullopt;
}

/// The mean of a position and its images under all operators whose fixed points it lies near to, and their number.
Site MeanOfImages(const Vector3& position, const SymmetryGroup& symmetry, const Metric& metric, double tolerance) {
  Site site{.position = position, .multiplicity = 1};
  for (const SymmetryOperator& each : symmetry.Operators()) {
    if (each.rotation == SymmetryOperator{}.rotation) continue;
    const Vector3 image = NearestImage(each, position);
    // An axis or plane is at most half as far as the image of a turn by 180 degrees, and as far as that of a sixth.
    if (Distance(image, position, metric) > 2.0 * tolerance) continue;
    const auto fixed = NearestFixedPoint(each, position);
    if (!fixed || Distance(*fixed, position, metric) > tolerance) continue;
    ++site.multiplicity;
    for (std::size_t i = 0; i < 3; ++i) site.position[i] += image[i];
  }
  for (double& component : site.position) component /= site.multiplicity;
  return site;
}

}  // namespace

double FormFactor::At(double s_squared) const {
  double sum = c;
  for (std::size_t i = 0; i < a.size(); ++i) sum += a[i] * std::exp(-b[i] * s_squared);
  return sum;
}

double EquivalentIsotropic(const std::array<double, 6>& u, const Lattice& lattice) {
  const Metric direct = lattice.DirectMetric();
  const Metric reciprocal = lattice.ReciprocalMetric();
  const double a = std::sqrt(reciprocal[0]);
  const double b = std::sqrt(reciprocal[1]);
  const double c = std::sqrt(reciprocal[2]);
  return (u[0] * a * a * direct[0] + u[1] * b * b * direct[1] + u[2] * c * c * direct[2] +
          2.0 * (u[3] * b * c * direct[3] + u[4] * a * c * direct[4] + u[5] * a * b * direct[5])) /
         3.0;
}

double MetricMisfit(const Lattice& lattice, const SymmetryGroup& symmetry) {
  const Metric metric = lattice.DirectMetric();
  const std::array<double, 3> lengths = {lattice.a, lattice.b, lattice.c};
  constexpr std::array<std::array<std::size_t, 2>, 6> kPairs = {{{0, 0}, {1, 1}, {2, 2}, {1, 2}, {0, 2}, {0, 1}}};
  double misfit = 0.0;
  for (const SymmetryOperator::Rotation& r : symmetry.LaueRotations())
    for (std::size_t n = 0; n < kPairs.size(); ++n) {
      const auto [i, j] = kPairs[n];
      // The product of the turned axes i and j: by the polar form of the metric.
      const auto axis = [&r](std::size_t m) { return Vector3{1.0 * r[0][m], 1.0 * r[1][m], 1.0 * r[2][m]}; };
      const Vector3 u = axis(i);
      const Vector3 v = axis(j);
      const double product = 0.25 * (SquaredLength(metric, u[0] + v[0], u[1] + v[1], u[2] + v[2]) -
                                     SquaredLength(metric, u[0] - v[0], u[1] - v[1], u[2] - v[2]));
      misfit = std::max(misfit, std::fabs(product - metric[n]) / (lengths[i] * lengths[j]));
    }
  return misfit;
}

Site FindSite(const Vector3& position, const SymmetryGroup& symmetry, const Lattice& lattice, double tolerance) {
  constexpr int kMostRounds = 20;
  constexpr double kSettled = 1e-7;
  const Metric metric = lattice.DirectMetric();
  Site site{.position = position};
  // On the way to one symmetry element a position can come near to another, so that one round need not be the last.
  for (int round = 0; round < kMostRounds; ++round) {
    const Site next = MeanOfImages(site.position, symmetry, metric, tolerance);
    const double move = Distance(next.position, site.position, metric);
    site = next;
    if (move < kSettled) break;
  }
  return site;
}

}  // namespace talven
