// Preferred orientation by the function of March and Dollase: W. A. Dollase, J. Appl. Cryst. 19 (1986) 267.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "crystal/Lattice.h"
#include "crystal/Symmetry.h"

namespace talven {

/// The planes whose normals are tried as axis of the texture.
inline constexpr std::array<MillerIndex, 3> kTextureAxes = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};

/// Preferred orientation: an axis by its place in kTextureAxes, and r, which is 1 where there is none.
struct Texture {
  std::size_t axis = 0;
  double r = 1.0;
};

/// (r^2 cos^2 a + sin^2 a / r)^(-3/2) for the angle a between a reflection and the axis.
double MarchDollase(double r, double squared_cosine);

/// The squared cosines of the equivalents of reflections with one axis, equal ones taken together.
class TextureAngles {
 public:
  TextureAngles() = default;
  TextureAngles(std::span<const MillerIndex> reflections, const MillerIndex& axis, const Lattice& lattice,
                const SymmetryGroup& symmetry);
  /// The mean of the factor over the equivalents of reflection i.
  double Factor(std::size_t i, double r) const;

 private:
  struct Share {
    double squared_cosine;
    double weight;
  };
  std::vector<Share> shares_;
  std::vector<std::size_t> ends_;
};

}  // namespace talven
