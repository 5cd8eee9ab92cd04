// The weighted cross-correlation of a measured pattern with lines: de Gelder, Wehrens and Hageman, J. Comput. Chem. 22
// (2001) 273.
//
//     S = sum_i I_i Y(2theta_i) / sqrt(C11 sum_i sum_j I_i I_j W(2theta_i - 2theta_j))
//
// T(r) = max(0, 1 - |r|/l) is the weight, g the profile of a line, Y = net * T * g, W = T * g * g and
// C11 = sum net (net * T): convolutions that are made once. S is 1 for a pattern that is the lines with profile g, and
// no more than that for any other.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "peaks/EvenGrid.h"

namespace talven {

/// A symmetrical function by its values at 0, step, 2 step ...; 0 beyond the last.
struct SymmetricTable {
  double step = 1.0;
  std::vector<double> values;

  double Reach() const { return step * static_cast<double>(values.size() - 1); }
  double At(double distance) const {
    const double place = std::fabs(distance) / step;
    // Larger than any table, or no number.
    if (!(place < static_cast<double>(values.size() - 1))) return 0.0;
    const auto low = static_cast<std::size_t>(place);
    return values[low] + (place - static_cast<double>(low)) * (values[low + 1] - values[low]);
  }
};

/// A pseudo-Voigt function of unit area with equal shares of Gauss and Lorentz, at `distance` from its middle; all in
/// degrees.
double PseudoVoigt(double distance, double fwhm);

/// How far the profile reaches, in widths; what it has beyond is shared out over the rest.
inline constexpr double kProfileReach = 20.0;

struct CorrelationKernels {
  SymmetricTable weight_and_profile;       // T * g
  SymmetricTable weight_and_two_profiles;  // T * g * g
};

/// For a triangle that falls to 0 at `reach` degrees.
CorrelationKernels MakeKernels(double reach, double fwhm);

/// A measured pattern made ready for correlation with any number of line lists.
class CorrelationTarget {
 public:
  /// `net`: counts above the background on equal steps, one at least. `reach`: the l of T, degrees.
  CorrelationTarget(const EvenGrid& net, double reach, double fwhm);

  /// S of lines by rising position, degrees, all within the range of the pattern. 0 where lines or pattern have no
  /// intensity.
  double Score(std::span<const double> two_theta, std::span<const double> intensities) const;

  double FirstTwoTheta() const { return first_; }
  double LastTwoTheta() const { return first_ + step_ * static_cast<double>(overlap_.size() - 1); }
  const SymmetricTable& LineOverlap() const { return kernels_.weight_and_two_profiles; }
  /// C11.
  double Power() const { return power_; }

 private:
  double Overlap(std::span<const double> two_theta, std::span<const double> intensities) const;

  double first_;
  double step_;
  CorrelationKernels kernels_;
  std::vector<double> overlap_;  // Y
  double power_ = 0.0;
};

/// The double sum of lines with themselves, by rising position.
double LinePower(std::span<const double> two_theta, std::span<const double> intensities, const SymmetricTable& overlap);

/// Lines shared out to the two next points of a grid, for lists so long that pairs are too many, and for comparing many
/// lists with each other.
class GriddedLines {
 public:
  GriddedLines(std::span<const double> two_theta, std::span<const double> intensities, double first, double last,
               const SymmetricTable& overlap);
  /// The double sum of these lines with themselves.
  double Power() const;
  /// S of one list against another; both on the same grid.
  double Correlate(const GriddedLines& other) const;
  /// The lines spread out, from the first point of the grid on.
  const std::vector<double>& Spread() const { return spread_; }
  /// Degrees.
  double Step() const { return step_; }

 private:
  double step_;
  std::vector<double> lines_;
  std::vector<double> spread_;
};

}  // namespace talven
