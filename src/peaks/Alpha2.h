// Telling the K alpha 2 companions of peaks from peaks of their own.
#pragma once

#include <optional>
#include <vector>

#include "peaks/PickPeaks.h"

namespace talven {

/// K alpha 2 / K alpha 1 of a pattern that was taken with this wavelength (Angstrom): from the two that the file tells,
/// or that of Cr, Fe, Co, Cu, Mo or Ag where the wavelength is K alpha 1 of one of these. 0 for any other.
double Alpha2Ratio(std::optional<double> wavelength, std::optional<double> wavelength_alpha2);

/// Tags each peak that lies where another's companion belongs, within 0.04 degrees, and has 0.3 to 0.75 of its height.
/// Peaks by rising angle.
void TagAlpha2(double wavelength_ratio, std::vector<Peak>& peaks);

}  // namespace talven
