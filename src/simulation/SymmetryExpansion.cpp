#include "simulation/SymmetryExpansion.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <unordered_map>

namespace talven {
namespace {

/// The entries of a list that are equivalent.
struct Line {
  MillerIndex representative;
  std::int32_t entry_count = 0;
  double f2_sum = 0.0;
  float two_theta = 0.0F;

  float MeanF2() const { return static_cast<float>(f2_sum / entry_count); }
};

/// One number for an index: those of a file have four digits at most.
std::uint64_t KeyOf(const MillerIndex& index) {
  const auto part = [](std::int32_t i) { return static_cast<std::uint64_t>(i + 0x80000) & 0xFFFFFU; };
  return part(index.h) << 40U | part(index.k) << 20U | part(index.l);
}

/// The lines of a list in the order of their first entries.
std::vector<Line> GatherLines(const SymmetryGroup& symmetry, const ReflectionList& list) {
  std::vector<Line> lines;
  std::unordered_map<std::uint64_t, std::size_t> places;
  for (std::int32_t i = 1; i <= list.ReflectionCount; ++i) {
    const MillerIndex index = symmetry.Representative({list.H[i], list.K[i], list.L[i]});
    const auto [place, is_new] = places.try_emplace(KeyOf(index), lines.size());
    if (is_new) lines.push_back({.representative = index, .two_theta = list.TwoTheta[i]});
    Line& line = lines[place->second];
    ++line.entry_count;
    line.f2_sum += static_cast<double>(list.F2[i]);
  }
  return lines;
}

}  // namespace

SymmetryExpansion ExpandBySymmetry(const SymmetryGroup& symmetry, const ReciprocalCell& cell, float wavelength,
                                   ReflectionList& list) {
  const std::vector<Line> lines = GatherLines(symmetry, list);
  std::vector<std::pair<MillerIndex, float>> entries;
  for (const Line& line : lines) {
    // The representative comes last, for files name a line by the last of its entries.
    const std::vector<MillerIndex> equivalents = symmetry.EquivalentsInHalf(line.representative);
    for (std::size_t i = equivalents.size(); i > 0; --i) entries.emplace_back(equivalents[i - 1], line.MeanF2());
  }
  SymmetryExpansion result{.unique_count = static_cast<std::int32_t>(lines.size())};
  result.limit_met = entries.size() > static_cast<std::size_t>(kReflectionLimit);
  if (result.limit_met) return result;
  list.ReflectionCount = 0;
  for (const auto& [index, f2] : entries) {
    const std::int32_t slot = ++list.ReflectionCount;
    list.H[slot] = index.h;
    list.K[slot] = index.k;
    list.L[slot] = index.l;
    list.F2[slot] = f2;
    list.TwoTheta[slot] = TwoThetaOf(ComputeSinTheta(cell, wavelength, index.h, index.k, index.l));
  }
  return result;
}

std::vector<UnevenLine> FindUnevenLines(const SymmetryGroup& symmetry, const ReflectionList& list) {
  const std::vector<Line> lines = GatherLines(symmetry, list);
  // Shares are fractions of small whole numbers, so equal ones are equal as reals too.
  std::vector<double> shares;
  std::map<double, std::int32_t> counts;
  for (const Line& line : lines) {
    const auto equivalents = symmetry.EquivalentsInHalf(line.representative).size();
    shares.push_back(static_cast<double>(line.entry_count) / static_cast<double>(equivalents));
    counts[shares.back()] += line.entry_count;
  }
  if (counts.size() < 2) return {};
  const double right = std::ranges::max_element(counts, {}, [](const auto& count) { return count.second; })->first;
  std::vector<UnevenLine> uneven;
  for (std::size_t i = 0; i < lines.size(); ++i)
    if (shares[i] != right)
      uneven.push_back({lines[i].representative, lines[i].two_theta, lines[i].MeanF2(), shares[i] / right});
  const auto error = [](const UnevenLine& line) { return -std::abs(line.factor - 1.0) * static_cast<double>(line.F2); };
  std::ranges::stable_sort(uneven, {}, error);
  return uneven;
}

}  // namespace talven
