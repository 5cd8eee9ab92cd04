#include "simulation/ModelReflections.h"

#include <vector>

#include "crystal/StructureFactors.h"

namespace talven {

UnitCell StoredCell(const CrystalModel& model) {
  const Lattice& lattice = model.lattice;
  UnitCell cell;
  cell.Wavelength = static_cast<float>(model.wavelength);
  cell.a = static_cast<float>(lattice.a);
  cell.b = static_cast<float>(lattice.b);
  cell.c = static_cast<float>(lattice.c);
  cell.alpha = static_cast<float>(lattice.alpha);
  cell.beta = static_cast<float>(lattice.beta);
  cell.gamma = static_cast<float>(lattice.gamma);
  return cell;
}

bool CalculateReflections(const CrystalModel& model, std::span<const MillerIndex> indices,
                          const ReflectionLimits& limits, ReflectionList& list) {
  const ReciprocalCell cell = DeriveReciprocalCell(StoredCell(model));
  list.ReflectionCount = 0;
  std::vector<MillerIndex> kept;
  std::vector<float> angles;
  for (const MillerIndex& index : indices) {
    const float sin_theta = ComputeSinTheta(cell, limits.Wavelength, index.h, index.k, index.l);
    if (sin_theta >= kLargestSinTheta || limits.IsBeyond(TwoThetaOf(sin_theta))) continue;
    kept.push_back(index);
    angles.push_back(TwoThetaOf(sin_theta));
  }
  if (kept.size() > static_cast<std::size_t>(kReflectionLimit)) return false;
  const std::vector<double> squared_factors = CalculateSquaredFactors(model, kept);
  for (std::size_t i = 0; i < kept.size(); ++i) {
    const std::int32_t slot = ++list.ReflectionCount;
    list.H[slot] = kept[i].h;
    list.K[slot] = kept[i].k;
    list.L[slot] = kept[i].l;
    list.F2[slot] = static_cast<float>(squared_factors[i]);
    list.TwoTheta[slot] = angles[i];
  }
  return true;
}

}  // namespace talven
