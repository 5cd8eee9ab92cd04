// A cell that varies as far as its symmetry lets it.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "crystal/Lattice.h"
#include "crystal/Symmetry.h"

namespace talven {

/// The parameters that symmetry leaves free: each changes one length or several that are tied to each other, or one
/// angle or several.
class FreeCell {
 public:
  FreeCell(const Lattice& lattice, const SymmetryGroup& symmetry);

  /// Lengths come first.
  std::size_t LengthCount() const { return length_count_; }
  std::size_t ParameterCount() const { return parameter_count_; }
  const Lattice& Start() const { return start_; }
  /// The cell after changes: of lengths relative to the start, of angles in degrees. It need not be valid.
  Lattice At(std::span<const double> changes) const;

 private:
  Lattice start_;
  SymmetryGroup symmetry_;
  std::array<std::size_t, 3> length_parameter_ = {};
  /// One past the parameters for an angle that is fixed.
  std::array<std::size_t, 3> angle_parameter_ = {};
  std::size_t length_count_ = 0;
  std::size_t parameter_count_ = 0;
  /// The axes are not those of a usual setting: ties between lengths and angles do not say all.
  bool needs_averaging_ = false;
};

/// The mean of a metric over the rotations of a group, which is invariant under it.
Metric AverageMetric(const Metric& metric, const SymmetryGroup& symmetry);

/// The cell with a given direct metric.
Lattice LatticeOf(const Metric& direct);

}  // namespace talven
