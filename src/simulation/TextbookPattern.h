// The pattern of a reflection list as the textbooks have it, beside the classic one.
#pragma once

#include "crystal/Pattern.h"
#include "crystal/ReflectionList.h"
#include "simulation/PatternOptions.h"

namespace talven {

/// Highest count of a pattern.
inline constexpr double kTextbookHighest = 99'000.0;

/// Fills in the points of a pattern, `point_count` of them from TwoThetaMin on. Each entry of the list adds a
/// pseudo-Voigt profile of unit area, half Lorentzian and half Gaussian (Young and Wiles, J. Appl. Cryst. 15 (1982)
/// 430), with a full width at half maximum in degrees, times F squared and the Lorentz-polarisation factor
/// (1 + cos^2 2theta)/(sin^2 theta cos theta). There is no background; profiles are cut at 100 widths. The highest
/// point becomes 99,000. Each reflection stands at the point next to it. Wavelength, title and the rest of the pattern
/// are left to the caller.
void FillTextbookPattern(const ReflectionList& list, const PatternOptions& options, std::int32_t point_count,
                         double fwhm, Pattern& pattern);

}  // namespace talven
