// The reflections that a model is asked for where there is no list of them.
#pragma once

#include <vector>

#include "crystal/CrystalModel.h"

namespace talven {

/// Half a sphere up to an angle 2theta in degrees at a wavelength in Angstrom. An angle that no reflection reaches, 180
/// and above, stands for all that the wavelength reaches. Throws FatalIoError for more than ten million.
std::vector<MillerIndex> HalfSphereTo(const CrystalModel& model, double wavelength, double two_theta_max);

}  // namespace talven
