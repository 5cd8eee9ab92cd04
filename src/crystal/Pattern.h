// A powder pattern in memory: what every reader of a pattern format gives and every writer takes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace talven {

/// A reflection that falls into the step of a point.
struct PatternReflection {
  /// Index of the point, from 0.
  std::size_t point = 0;
  std::int32_t h = 0;
  std::int32_t k = 0;
  std::int32_t l = 0;
};

/// Points by rising angle. `two_theta` and `counts` have the same length, `sigma` too or none at all.
struct Pattern {
  std::string title;
  /// 2theta, degrees.
  std::vector<double> two_theta;
  /// Counts or any other intensity of a point, in the unit of the source.
  std::vector<double> counts;
  /// Standard deviation of the counts, where the source tells it.
  std::vector<double> sigma;
  /// Degrees, where the source tells start and step in place of each angle.
  std::optional<double> step;
  /// Counting time of a point, in the unit of the source (seconds as a rule).
  std::optional<double> step_time;
  /// Angstrom: of K alpha 1 or the only line, and of K alpha 2 with its share of the intensity of K alpha 1.
  std::optional<double> wavelength;
  std::optional<double> wavelength_alpha2;
  std::optional<double> alpha2_ratio;
  /// How the instrument moved ("2Theta/Omega"), and its name, where the source tells them.
  std::string scan_axis;
  std::string instrument;
  /// By rising point; several may stand at one point.
  std::vector<PatternReflection> reflections;

  std::size_t PointCount() const { return counts.size(); }
};

}  // namespace talven
