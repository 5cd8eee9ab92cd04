#include "crystal/StructureFactors.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace talven {
namespace {

using Complex = std::complex<double>;
constexpr double kTwoPi = 2.0 * std::numbers::pi;
constexpr double kEightPiSquared = 8.0 * std::numbers::pi * std::numbers::pi;

/// exp(2 pi i n/24). Halves are exact, so that what vanishes by symmetry does so exactly.
std::array<Complex, SymmetryOperator::kParts> MakePhases() {
  const auto snap = [](double value) {
    const double halves = std::round(2.0 * value) / 2.0;
    return std::fabs(value - halves) < 1e-12 ? halves : value;
  };
  std::array<Complex, SymmetryOperator::kParts> phases;
  for (std::size_t n = 0; n < phases.size(); ++n) {
    const double angle = kTwoPi * static_cast<double>(n) / SymmetryOperator::kParts;
    phases[n] = {snap(std::cos(angle)), snap(std::sin(angle))};
  }
  return phases;
}

/// Atoms of one scatterer that share all that does not depend on the direction of h: one isotropic displacement, or
/// none because each has its own tensor.
struct AtomGroup {
  std::size_t scatterer = 0;
  std::size_t begin = 0;
  std::size_t end = 0;
  bool is_anisotropic = false;
  double u_isotropic = 0.0;
};

/// One complex number for each atom.
struct AtomPhases {
  std::vector<double> re;
  std::vector<double> im;
};

/// exp(2 pi i n x) of all atoms along one axis, made when an index n first comes.
class AxisTable {
 public:
  void Add(double x) { positions_.push_back(x); }

  const AtomPhases& At(std::int32_t index) {
    AtomPhases& row = rows_[index];
    if (row.re.size() == positions_.size()) return row;
    for (const double x : positions_) {
      const double angle = kTwoPi * (index * x);
      row.re.push_back(std::cos(angle));
      row.im.push_back(std::sin(angle));
    }
    return row;
  }

 private:
  std::vector<double> positions_;
  std::unordered_map<std::int32_t, AtomPhases> rows_;
};

/// What stays the same for all atoms while l runs: occupancy times the phase of h and k, and the exponent of the
/// displacement in powers of l.
struct Plane {
  bool is_filled = false;
  std::int32_t h = 0;
  std::int32_t k = 0;
  AtomPhases phases;
  std::vector<double> constant;
  std::vector<double> linear;
};

/// The sum over atoms and operators for one index after another.
class Summation {
 public:
  explicit Summation(const CrystalModel& model);
  double SquaredFactor(const MillerIndex& index);

 private:
  void AddAtom(const Atom& atom);
  const Plane& PlaneOf(std::size_t operator_number, const MillerIndex& index);
  Complex SumOfGroup(const AtomGroup& group, const Plane& plane, const AtomPhases& phases_l, double l) const;
  void AddOperator(std::size_t operator_number, const MillerIndex& index);

  const CrystalModel& model_;
  const Metric reciprocal_;
  const std::array<Complex, SymmetryOperator::kParts> turns_ = MakePhases();
  std::vector<AtomGroup> groups_;
  std::vector<double> occupancy_;
  /// 2 pi^2 U_ij a*_i a*_j: 11, 22, 33, 23, 13, 12.
  std::vector<std::array<double, 6>> beta_;
  std::array<AxisTable, 3> axes_;
  std::vector<Plane> planes_;
  /// Of the index at hand: exp(-8 pi^2 U s^2) for each group, and the sum of phases for each scatterer.
  std::vector<double> damping_;
  std::vector<Complex> sums_;
};

Summation::Summation(const CrystalModel& model)
    : model_(model),
      reciprocal_(model.lattice.ReciprocalMetric()),
      planes_(model.symmetry.Reduced().size()),
      sums_(model.scatterers.size()) {
  std::vector<const Atom*> sorted;
  for (const Atom& atom : model.atoms) sorted.push_back(&atom);
  const auto key = [](const Atom* atom) {
    return std::tuple(atom->scatterer, atom->is_anisotropic, atom->is_anisotropic ? 0.0 : atom->u_isotropic);
  };
  std::stable_sort(sorted.begin(), sorted.end(), [&](const Atom* a, const Atom* b) { return key(a) < key(b); });
  const Atom* last = nullptr;
  for (const Atom* atom : sorted) {
    if (last == nullptr || key(last) != key(atom))
      groups_.push_back({.scatterer = atom->scatterer,
                         .begin = occupancy_.size(),
                         .is_anisotropic = atom->is_anisotropic,
                         .u_isotropic = atom->u_isotropic});
    AddAtom(*atom);
    groups_.back().end = occupancy_.size();
    last = atom;
  }
  damping_.resize(groups_.size());
}

void Summation::AddAtom(const Atom& atom) {
  occupancy_.push_back(atom.occupancy);
  for (std::size_t i = 0; i < axes_.size(); ++i) axes_[i].Add(atom.position[i]);
  const double a = std::sqrt(reciprocal_[0]);
  const double b = std::sqrt(reciprocal_[1]);
  const double c = std::sqrt(reciprocal_[2]);
  std::array<double, 6> beta = {a * a, b * b, c * c, b * c, a * c, a * b};
  for (std::size_t i = 0; i < beta.size(); ++i) beta[i] *= 0.25 * kEightPiSquared * atom.u[i];
  beta_.push_back(beta);
}

const Plane& Summation::PlaneOf(std::size_t operator_number, const MillerIndex& index) {
  Plane& plane = planes_[operator_number];
  if (plane.is_filled && plane.h == index.h && plane.k == index.k) return plane;
  const AtomPhases& along_h = axes_[0].At(index.h);
  const AtomPhases& along_k = axes_[1].At(index.k);
  const std::size_t count = occupancy_.size();
  for (auto* each : {&plane.phases.re, &plane.phases.im, &plane.constant, &plane.linear}) each->resize(count);
  const double h = index.h;
  const double k = index.k;
  for (std::size_t j = 0; j < count; ++j) {
    plane.phases.re[j] = occupancy_[j] * (along_h.re[j] * along_k.re[j] - along_h.im[j] * along_k.im[j]);
    plane.phases.im[j] = occupancy_[j] * (along_h.re[j] * along_k.im[j] + along_h.im[j] * along_k.re[j]);
    const auto& beta = beta_[j];
    plane.constant[j] = beta[0] * h * h + beta[1] * k * k + 2.0 * beta[5] * h * k;
    plane.linear[j] = 2.0 * (beta[3] * k + beta[4] * h);
  }
  plane.is_filled = true;
  plane.h = index.h;
  plane.k = index.k;
  return plane;
}

Complex Summation::SumOfGroup(const AtomGroup& group, const Plane& plane, const AtomPhases& phases_l, double l) const {
  double re = 0.0;
  double im = 0.0;
  for (std::size_t j = group.begin; j < group.end; ++j) {
    double phase_re = plane.phases.re[j] * phases_l.re[j] - plane.phases.im[j] * phases_l.im[j];
    double phase_im = plane.phases.re[j] * phases_l.im[j] + plane.phases.im[j] * phases_l.re[j];
    if (group.is_anisotropic) {
      const double damping = std::exp(-(plane.constant[j] + l * (plane.linear[j] + l * beta_[j][2])));
      phase_re *= damping;
      phase_im *= damping;
    }
    re += phase_re;
    im += phase_im;
  }
  return {re, im};
}

void Summation::AddOperator(std::size_t operator_number, const MillerIndex& index) {
  const SymmetryOperator& each = model_.symmetry.Reduced()[operator_number];
  const MillerIndex turned = each.Apply(index);
  const Plane& plane = PlaneOf(operator_number, turned);
  const AtomPhases& along_l = axes_[2].At(turned.l);
  const Complex turn = turns_[static_cast<std::size_t>(each.PhaseOf(index))];
  for (std::size_t g = 0; g < groups_.size(); ++g) {
    const Complex sum = SumOfGroup(groups_[g], plane, along_l, turned.l);
    sums_[groups_[g].scatterer] += damping_[g] * Complex(sum.real() * turn.real() - sum.imag() * turn.imag(),
                                                         sum.real() * turn.imag() + sum.imag() * turn.real());
  }
}

double Summation::SquaredFactor(const MillerIndex& index) {
  const double s_squared = 0.25 * SquaredLength(reciprocal_, index.h, index.k, index.l);
  for (std::size_t g = 0; g < groups_.size(); ++g)
    damping_[g] = groups_[g].is_anisotropic ? 1.0 : std::exp(-kEightPiSquared * groups_[g].u_isotropic * s_squared);
  std::fill(sums_.begin(), sums_.end(), Complex());
  for (std::size_t i = 0; i < planes_.size(); ++i) AddOperator(i, index);
  // With P = sum (f + f') e and Q = sum f'' e the mean over a Friedel pair is |P|^2 + |Q|^2: cross terms cancel.
  Complex p;
  Complex q;
  for (std::size_t i = 0; i < sums_.size(); ++i) {
    const Scatterer& scatterer = model_.scatterers[i];
    const Complex sum = model_.symmetry.HasInversionAtOrigin() ? Complex(2.0 * sums_[i].real()) : sums_[i];
    p += (scatterer.form.At(s_squared) + scatterer.f_prime) * sum;
    q += scatterer.f_double_prime * sum;
  }
  const auto centring = static_cast<double>(model_.symmetry.Centring().size());
  return centring * centring * (std::norm(p) + std::norm(q));
}

/// The largest index along an axis at which d can still be above a limit; a million at most.
std::int32_t MostIndex(double length, double d_min) {
  return static_cast<std::int32_t>(std::min(std::floor(length / d_min), 1e6));
}

/// Hands over each index of half a sphere that symmetry lets appear, by h, k, l.
template <typename Take>
void ForEachInHalfSphere(const Lattice& lattice, const SymmetryGroup& symmetry, double d_min, const Take& take) {
  const Metric reciprocal = lattice.ReciprocalMetric();
  const double limit = 1.0 / (d_min * d_min);
  const std::int32_t most_k = MostIndex(lattice.b, d_min);
  const std::int32_t most_l = MostIndex(lattice.c, d_min);
  for (std::int32_t h = 0; h <= MostIndex(lattice.a, d_min); ++h)
    for (std::int32_t k = h == 0 ? 0 : -most_k; k <= most_k; ++k)
      for (std::int32_t l = h == 0 && k == 0 ? 1 : -most_l; l <= most_l; ++l) {
        const double inverse_square_spacing = SquaredLength(reciprocal, h, k, l);
        const MillerIndex index = {h, k, l};
        if (inverse_square_spacing <= limit && !symmetry.IsAbsent(index)) take(index, inverse_square_spacing);
      }
}

}  // namespace

std::vector<double> CalculateSquaredFactors(const CrystalModel& model, std::span<const MillerIndex> indices) {
  constexpr double kNoMisfit = 1e-4;
  const SymmetryGroup& symmetry = model.symmetry;
  const bool has_equivalents = symmetry.IsGroup() && MetricMisfit(model.lattice, symmetry) < kNoMisfit;
  std::vector<std::pair<MillerIndex, std::uint32_t>> sorted;
  sorted.reserve(indices.size());
  for (const MillerIndex& index : indices)
    sorted.emplace_back(has_equivalents ? symmetry.Representative(index) : std::max(index, -index),
                        static_cast<std::uint32_t>(sorted.size()));
  std::sort(sorted.begin(), sorted.end());
  Summation summation(model);
  std::vector<double> result(indices.size());
  for (std::size_t i = 0; i < sorted.size(); ++i) {
    const auto& [index, place] = sorted[i];
    if (i > 0 && index == sorted[i - 1].first)
      result[place] = result[sorted[i - 1].second];
    else if (!has_equivalents || !symmetry.IsAbsent(index))
      result[place] = summation.SquaredFactor(index);
  }
  return result;
}

std::vector<UniqueReflection> UniqueReflections(const Lattice& lattice, const SymmetryGroup& symmetry, double d_min) {
  std::vector<UniqueReflection> result;
  ForEachInHalfSphere(lattice, symmetry, d_min, [&](const MillerIndex& index, double inverse_square_spacing) {
    if (const int multiplicity = symmetry.MultiplicityIfRepresentative(index))
      result.push_back({index, multiplicity, inverse_square_spacing});
  });
  return result;
}

std::vector<MillerIndex> HalfSphere(const Lattice& lattice, const SymmetryGroup& symmetry, double d_min) {
  std::vector<MillerIndex> result;
  ForEachInHalfSphere(lattice, symmetry, d_min, [&](const MillerIndex& index, double) { result.push_back(index); });
  return result;
}

}  // namespace talven
