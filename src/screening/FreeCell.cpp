#include "screening/FreeCell.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace talven {
namespace {

constexpr double kDegrees = 180.0 / std::numbers::pi;
constexpr double kSame = 1e-9;

using Matrix = std::array<std::array<double, 3>, 3>;

Matrix Unfold(const Metric& g) {
  return {{{g[0], g[5], g[4]}, {g[5], g[1], g[3]}, {g[4], g[3], g[2]}}};
}

/// Adds R' G R to a sum.
void AddTurned(const Matrix& g, const SymmetryOperator::Rotation& r, Matrix& sum) {
  for (std::size_t i = 0; i < 3; ++i)
    for (std::size_t j = 0; j < 3; ++j)
      for (std::size_t m = 0; m < 3; ++m)
        for (std::size_t n = 0; n < 3; ++n) sum[i][j] += r[m][i] * g[m][n] * r[n][j];
}

std::array<double, 3> Lengths(const Lattice& lattice) {
  return {lattice.a, lattice.b, lattice.c};
}

std::array<double, 3> Angles(const Lattice& lattice) {
  return {lattice.alpha, lattice.beta, lattice.gamma};
}

bool IsSame(double a, double b) {
  return std::fabs(a - b) < kSame * (std::fabs(a) + std::fabs(b));
}

bool IsSameMetric(const Metric& a, const Metric& b) {
  for (std::size_t i = 0; i < a.size(); ++i)
    if (std::fabs(a[i] - b[i]) > 1e-6 * (a[0] + a[1] + a[2])) return false;
  return true;
}

/// Two cells that have no more in common than the symmetry makes them have.
std::array<Lattice, 2> GenericCells(const SymmetryGroup& symmetry) {
  const Lattice one{.a = 5.0, .b = 6.1, .c = 7.3, .alpha = 84.0, .beta = 97.0, .gamma = 103.0};
  const Lattice other{.a = 8.0, .b = 6.7, .c = 5.9, .alpha = 101.0, .beta = 82.0, .gamma = 93.0};
  return {LatticeOf(AverageMetric(one.DirectMetric(), symmetry)),
          LatticeOf(AverageMetric(other.DirectMetric(), symmetry))};
}

}  // namespace

Metric AverageMetric(const Metric& metric, const SymmetryGroup& symmetry) {
  Matrix sum = {};
  const Matrix g = Unfold(metric);
  for (const SymmetryOperator::Rotation& rotation : symmetry.LaueRotations()) AddTurned(g, rotation, sum);
  const auto count = static_cast<double>(symmetry.LaueRotations().size());
  return {sum[0][0] / count, sum[1][1] / count, sum[2][2] / count,
          sum[1][2] / count, sum[0][2] / count, sum[0][1] / count};
}

Lattice LatticeOf(const Metric& direct) {
  const double a = std::sqrt(direct[0]);
  const double b = std::sqrt(direct[1]);
  const double c = std::sqrt(direct[2]);
  return {.a = a,
          .b = b,
          .c = c,
          .alpha = kDegrees * std::acos(direct[3] / (b * c)),
          .beta = kDegrees * std::acos(direct[4] / (a * c)),
          .gamma = kDegrees * std::acos(direct[5] / (a * b))};
}

FreeCell::FreeCell(const Lattice& lattice, const SymmetryGroup& symmetry) : start_(lattice), symmetry_(symmetry) {
  const auto [one, other] = GenericCells(symmetry);
  std::size_t next = 0;
  /// A parameter for each of three values, shared where two are the same in both cells.
  const auto share = [&next](const std::array<double, 3>& x, const std::array<double, 3>& y, std::size_t i,
                             std::array<std::size_t, 3>& parameters) {
    for (std::size_t j = 0; j < i; ++j)
      if (IsSame(x[i], x[j]) && IsSame(y[i], y[j])) {
        parameters[i] = parameters[j];
        return;
      }
    parameters[i] = next++;
  };
  for (std::size_t i = 0; i < 3; ++i) share(Lengths(one), Lengths(other), i, length_parameter_);
  length_count_ = next;
  constexpr std::size_t kFixed = 6;
  for (std::size_t i = 0; i < 3; ++i) {
    angle_parameter_[i] = kFixed;
    if (!IsSame(Angles(one)[i], Angles(other)[i])) share(Angles(one), Angles(other), i, angle_parameter_);
  }
  parameter_count_ = next;
  std::array<double, 6> changes = {0.013, -0.017, 0.011, 0.7, -0.9, 1.1};
  FreeCell of_generic = *this;
  of_generic.start_ = one;
  const Metric changed = of_generic.At(std::span(changes).first(parameter_count_)).DirectMetric();
  needs_averaging_ = !IsSameMetric(changed, AverageMetric(changed, symmetry));
}

Lattice FreeCell::At(std::span<const double> changes) const {
  const auto length = [&](double start, std::size_t i) { return start * (1.0 + changes[length_parameter_[i]]); };
  const auto angle = [&](double start, std::size_t i) {
    return angle_parameter_[i] < changes.size() ? start + changes[angle_parameter_[i]] : start;
  };
  const Lattice lattice{.a = length(start_.a, 0),
                        .b = length(start_.b, 1),
                        .c = length(start_.c, 2),
                        .alpha = angle(start_.alpha, 0),
                        .beta = angle(start_.beta, 1),
                        .gamma = angle(start_.gamma, 2)};
  return needs_averaging_ ? LatticeOf(AverageMetric(lattice.DirectMetric(), symmetry_)) : lattice;
}

}  // namespace talven
