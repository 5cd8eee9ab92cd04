#include "screening/Texture.h"

#include <algorithm>
#include <cmath>

namespace talven {
namespace {

constexpr double kSameCosine = 1e-9;

double SquaredCosine(const Metric& metric, const MillerIndex& x, const MillerIndex& y) {
  const double product = metric[0] * x.h * y.h + metric[1] * x.k * y.k + metric[2] * x.l * y.l +
                         metric[3] * (x.k * y.l + x.l * y.k) + metric[4] * (x.h * y.l + x.l * y.h) +
                         metric[5] * (x.h * y.k + x.k * y.h);
  const double squared_lengths = SquaredLength(metric, x.h, x.k, x.l) * SquaredLength(metric, y.h, y.k, y.l);
  return std::min(product * product / squared_lengths, 1.0);
}

}  // namespace

double MarchDollase(double r, double squared_cosine) {
  const double x = r * r * squared_cosine + (1.0 - squared_cosine) / r;
  return 1.0 / (x * std::sqrt(x));
}

TextureAngles::TextureAngles(std::span<const MillerIndex> reflections, const MillerIndex& axis, const Lattice& lattice,
                             const SymmetryGroup& symmetry) {
  const Metric metric = lattice.ReciprocalMetric();
  for (const MillerIndex& reflection : reflections) {
    std::vector<double> cosines;
    for (const MillerIndex& equivalent : symmetry.EquivalentsInHalf(reflection))
      cosines.push_back(SquaredCosine(metric, equivalent, axis));
    std::ranges::sort(cosines);
    const double weight = 1.0 / static_cast<double>(cosines.size());
    const std::size_t first = shares_.size();
    for (const double cosine : cosines) {
      if (shares_.size() > first && cosine - shares_.back().squared_cosine < kSameCosine)
        shares_.back().weight += weight;
      else
        shares_.push_back({cosine, weight});
    }
    ends_.push_back(shares_.size());
  }
}

double TextureAngles::Factor(std::size_t i, double r) const {
  double sum = 0.0;
  for (std::size_t share = i == 0 ? 0 : ends_[i - 1]; share < ends_[i]; ++share)
    sum += shares_[share].weight * MarchDollase(r, shares_[share].squared_cosine);
  return sum;
}

}  // namespace talven
