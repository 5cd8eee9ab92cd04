#include "peaks/Alpha2.h"

#include <cmath>
#include <numbers>

namespace talven {
namespace {

constexpr double kPositionTolerance = 0.04;
constexpr double kLowestHeight = 0.3;
constexpr double kHighestHeight = 0.75;
/// Angstrom: how far the digits of files lie from the tabulated lines.
constexpr double kLineTolerance = 0.0003;
constexpr double kRadians = std::numbers::pi / 180.0;

struct Doublet {
  double alpha1;
  double alpha2;
};

/// Cr, Fe, Co, Cu, Mo, Ag; International Tables for Crystallography C, section 4.2.2, Angstrom.
constexpr Doublet kDoublets[] = {{2.289726, 2.293652}, {1.936041, 1.939973},   {1.788996, 1.792835},
                                 {1.540593, 1.544427}, {0.7093172, 0.7136072}, {0.5594218, 0.5638131}};

}  // namespace

double Alpha2Ratio(std::optional<double> wavelength, std::optional<double> wavelength_alpha2) {
  if (!wavelength || !(*wavelength > 0.0)) return 0.0;
  if (wavelength_alpha2 && *wavelength_alpha2 > *wavelength) return *wavelength_alpha2 / *wavelength;
  for (const Doublet& line : kDoublets)
    if (std::fabs(*wavelength - line.alpha1) < kLineTolerance) return line.alpha2 / line.alpha1;
  return 0.0;
}

void TagAlpha2(double wavelength_ratio, std::vector<Peak>& peaks) {
  if (!(wavelength_ratio > 1.0)) return;
  for (std::size_t i = 0; i < peaks.size(); ++i) {
    const double sine = wavelength_ratio * std::sin(0.5 * kRadians * peaks[i].two_theta);
    if (peaks[i].is_alpha2 || !(sine < 1.0)) continue;
    const double expected = 2.0 / kRadians * std::asin(sine);
    for (std::size_t j = i + 1; j < peaks.size() && peaks[j].two_theta < expected + kPositionTolerance; ++j) {
      const double height = peaks[j].height / peaks[i].height;
      if (peaks[j].two_theta > expected - kPositionTolerance && height > kLowestHeight && height < kHighestHeight)
        peaks[j].is_alpha2 = true;
    }
  }
}

}  // namespace talven
