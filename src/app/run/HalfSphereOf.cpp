#include "app/run/HalfSphereOf.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "crystal/StructureFactors.h"
#include "textio/FatalIoError.h"

namespace talven {
namespace {

constexpr double kMostReflections = 1e7;

}  // namespace

std::vector<MillerIndex> HalfSphereTo(const CrystalModel& model, double wavelength, double two_theta_max) {
  const double spacing = 1.0 / std::sqrt(InverseSquareSpacingAt(std::min(two_theta_max, 180.0), wavelength));
  // The volume of half the sphere, in cells of the reciprocal lattice.
  const double count = 2.0 / 3.0 * std::numbers::pi * model.lattice.Volume() / (spacing * spacing * spacing);
  if (!(count <= kMostReflections)) throw FatalIoError("more than ten million reflections: lower --two-theta-max");
  return HalfSphere(model.lattice, model.symmetry, spacing);
}

}  // namespace talven
