// A crystal structure: cell, symmetry, and what scatters where.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "crystal/Lattice.h"
#include "crystal/Symmetry.h"

namespace talven {

/// f(s) = sum a exp(-b s^2) + c with s = sin(theta)/lambda, in electrons.
struct FormFactor {
  std::array<double, 4> a = {};
  /// Square Angstrom.
  std::array<double, 4> b = {};
  double c = 0.0;

  double At(double s_squared) const;
};

struct Scatterer {
  std::string label;
  /// 0 where the label names no element.
  int atomic_number = 0;
  FormFactor form;
  /// f' and f'' in electrons.
  double f_prime = 0.0;
  double f_double_prime = 0.0;
  /// f' and f'' came with the model, and hold for its own wavelength.
  bool has_own_dispersion = false;
};

struct Atom {
  std::string label;
  /// Index of the scatterer, from 0.
  std::size_t scatterer = 0;
  /// Fractions of the axes.
  Vector3 position = {};
  /// Weight in the sum over all operators: of a whole atom on a site of multiplicity 2 that is 1/2.
  double occupancy = 1.0;
  /// Mean square displacement, square Angstrom: isotropic, or U11 U22 U33 U23 U13 U12.
  double u_isotropic = 0.05;
  std::array<double, 6> u = {};
  bool is_anisotropic = false;
  /// Atoms of different groups of disorder may lie on top of each other; 0: none.
  int part = 0;
};

struct CrystalModel {
  std::string title;
  /// Angstrom; 0 where it is not told.
  double wavelength = 0.0;
  Lattice lattice;
  SymmetryGroup symmetry;
  std::vector<Scatterer> scatterers;
  std::vector<Atom> atoms;
};

/// A model as a reader gives it, with what is worth telling: whole sentences with file and line.
struct ModelReading {
  CrystalModel model;
  std::vector<std::string> notices;
};

/// The equivalent isotropic displacement of U11 U22 U33 U23 U13 U12: a third of the trace on orthogonal axes (Fischer
/// and Tillmanns, Acta Cryst. C44 (1988) 775).
double EquivalentIsotropic(const std::array<double, 6>& u, const Lattice& lattice);

/// The largest change that an operator makes to the cell's metric, as a part of it: 0 for a cell that has the symmetry
/// of its operators.
double MetricMisfit(const Lattice& lattice, const SymmetryGroup& symmetry);

/// The special position that a position lies on or near.
struct Site {
  Vector3 position = {};
  /// How many operators leave it where it is, moves by whole cells included.
  int multiplicity = 1;
};

/// Moves a position that lies within `tolerance` Angstrom of a rotation axis, mirror plane or centre onto it; a general
/// one stays.
Site FindSite(const Vector3& position, const SymmetryGroup& symmetry, const Lattice& lattice, double tolerance);

}  // namespace talven
