#include "screening/Candidate.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "crystal/StructureFactors.h"
#include "peaks/Background.h"
#include "peaks/EvenGrid.h"

namespace talven {
namespace {

/// Steps that stand for one width of a pattern's own peaks.
constexpr double kStepsInWidth = 2.0;

/// Puts lines in the order of rising 1/d squared; equal ones keep their order.
void SortLines(Candidate& candidate) {
  std::vector<std::size_t> order(candidate.inverse_squares.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order, {}, [&candidate](std::size_t i) { return candidate.inverse_squares[i]; });
  const Candidate unsorted = candidate;
  for (std::size_t i = 0; i < order.size(); ++i) {
    candidate.inverse_squares[i] = unsorted.inverse_squares[order[i]];
    candidate.strengths[i] = unsorted.strengths[order[i]];
    if (!unsorted.indices.empty()) candidate.indices[i] = unsorted.indices[order[i]];
  }
}

}  // namespace

Candidate CandidateOf(const CrystalModel& model, const LineRange& range, bool has_texture) {
  Candidate candidate;
  candidate.cell.emplace(model.lattice, model.symmetry);
  const double farthest = InverseSquareSpacingAt(std::min(range.last, 180.0), range.wavelength);
  const double d_min = (1.0 - kSpacingMargin) / std::sqrt(farthest);
  std::vector<int> multiplicities;
  for (const UniqueReflection& reflection : UniqueReflections(model.lattice, model.symmetry, d_min)) {
    candidate.indices.push_back(reflection.index);
    candidate.inverse_squares.push_back(reflection.inverse_square_spacing);
    multiplicities.push_back(reflection.multiplicity);
  }
  candidate.strengths = CalculateSquaredFactors(model, candidate.indices);
  for (std::size_t i = 0; i < multiplicities.size(); ++i) candidate.strengths[i] *= multiplicities[i];
  SortLines(candidate);
  if (has_texture)
    for (const MillerIndex& axis : kTextureAxes)
      candidate.texture.emplace_back(candidate.indices, axis, model.lattice, model.symmetry);
  return candidate;
}

Candidate CandidateOfLines(const std::vector<double>& two_theta, const std::vector<double>& intensities,
                           double wavelength) {
  Candidate candidate;
  for (std::size_t i = 0; i < two_theta.size(); ++i) {
    if (!(two_theta[i] > 0.0 && two_theta[i] < 180.0)) continue;
    candidate.inverse_squares.push_back(InverseSquareSpacingAt(two_theta[i], wavelength));
    candidate.strengths.push_back(intensities[i]);
  }
  SortLines(candidate);
  return candidate;
}

Candidate CandidateOfPattern(const Pattern& pattern, double wavelength, double fwhm) {
  const EvenGrid whole = MakeEvenGrid(pattern, kFinestBackgroundStep);
  if (whole.PointCount() < 2) return {};
  const std::vector<double> background = EstimateBackground(whole);
  Pattern net;
  for (std::size_t i = 0; i < whole.PointCount(); ++i) {
    net.two_theta.push_back(whole.TwoTheta(i));
    net.counts.push_back(whole.counts[i] - background[i]);
  }
  const EvenGrid lines = MakeEvenGrid(net, fwhm / kStepsInWidth);
  std::vector<double> angles;
  for (std::size_t i = 0; i < lines.PointCount(); ++i) angles.push_back(lines.TwoTheta(i));
  Candidate candidate = CandidateOfLines(angles, lines.counts, wavelength);
  candidate.notices = whole.notices;
  return candidate;
}

}  // namespace talven
