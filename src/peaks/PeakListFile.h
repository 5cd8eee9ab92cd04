// Writing NAME.peaks.LST, a list of peaks that the comparison reads.
//
//     Peaks: 2theta in degrees, height above the background
//       Radiation Wavelength   1.54056          left out where it is not known
//       Marked Peaks
//       12.340     1000.0                       2theta F9.3, height F11.1
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "peaks/PickPeaks.h"
#include "textio/TextOutput.h"

namespace talven {

inline constexpr std::string_view kPeakListSuffix = ".peaks.LST";

/// Peaks by rising angle, wavelength in Angstrom. Heights that would pass their column are all divided by one power of
/// ten; the comparison scales them anyway.
void WritePeakList(const std::vector<Peak>& peaks, std::optional<double> wavelength, TextOutput& output);

}  // namespace talven
