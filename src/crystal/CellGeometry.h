// Volume and reciprocal cell, Bragg angles and the class of a cell.
#pragma once

#include <cstdint>

#include "crystal/UnitCell.h"

namespace talven {

/// Which cosines the volume comes from: those that are stored, or the same before they were rounded.
enum class VolumeCosines { kStored, kUnrounded };

/// The reciprocal cell with its volume. All else comes from stored cosines.
ReciprocalCell DeriveReciprocalCell(const UnitCell& cell, VolumeCosines cosines = VolumeCosines::kStored);

/// sin theta from which on a reflection counts as beyond reach, at about 143.6 degrees of 2theta.
inline constexpr float kLargestSinTheta = 0.95F;

/// 1/d squared of h k l. Indices are 64 bits wide, so that no limit that a form can hold makes a product of two
/// overflow.
float InverseSquareSpacing(const ReciprocalCell& cell, std::int64_t h, std::int64_t k, std::int64_t l);

/// sin theta of h k l by Bragg's law, wavelength / 2d; it may pass 1.
float ComputeSinTheta(const ReciprocalCell& cell, float wavelength, std::int32_t h, std::int32_t k, std::int32_t l);

/// 2theta in degrees of a sin theta below 1.
float TwoThetaOf(float sin_theta);

/// The class of a cell by its lengths (within 5 % of a) and its angles (within the tolerance, degrees): 1 none of the
/// others, 2 monoclinic, 3 orthorhombic, 4 tetragonal, 5 cubic; 6, 7, 11, 21 and 23 for mixed cases. The test of 120
/// degrees is on beta on purpose, so a hexagonal cell in the usual setting has class 1.
std::int32_t ClassifyCell(const UnitCell& cell, double tolerance);

}  // namespace talven
