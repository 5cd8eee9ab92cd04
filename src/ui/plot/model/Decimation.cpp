#include "ui/plot/model/Decimation.h"

#include <algorithm>

namespace talven {
namespace {

constexpr std::size_t kPointsPerColumn = 4;

void KeepColumn(std::span<const double> y, std::size_t begin, std::size_t end, std::vector<std::size_t>& kept) {
  if (end - begin <= kPointsPerColumn) {
    for (std::size_t i = begin; i < end; ++i) kept.push_back(i);
    return;
  }
  std::size_t lowest = begin;
  std::size_t highest = begin;
  for (std::size_t i = begin + 1; i < end; ++i) {
    if (y[i] < y[lowest]) lowest = i;
    if (y[i] > y[highest]) highest = i;
  }
  for (const std::size_t i : {begin, std::min(lowest, highest), std::max(lowest, highest), end - 1}) {
    if (kept.empty() || kept.back() < i) kept.push_back(i);
  }
}

}  // namespace

std::vector<std::size_t> PointsToDraw(std::span<const double> x, std::span<const double> y,
                                      std::span<const double> edges) {
  std::vector<std::size_t> kept;
  if (x.empty() || edges.size() < 2) return kept;
  const auto index_of = [&](double edge) {
    return static_cast<std::size_t>(std::lower_bound(x.begin(), x.end(), edge) - x.begin());
  };
  kept.reserve((edges.size() + 1) * kPointsPerColumn);
  std::size_t begin = index_of(edges.front());
  if (begin > 0) kept.push_back(begin - 1);
  for (const double edge : edges.subspan(1)) {
    const std::size_t end = index_of(edge);
    if (end > begin) KeepColumn(y, begin, end, kept);
    begin = std::max(begin, end);
  }
  if (begin < x.size()) kept.push_back(begin);
  return kept;
}

}  // namespace talven
