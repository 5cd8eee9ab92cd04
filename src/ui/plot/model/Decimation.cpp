#include "ui/plot/model/Decimation.h"

#include <algorithm>

namespace talven {
namespace {

/// A point that stands there already is not drawn twice.
void Keep(std::size_t point, std::vector<std::size_t>& kept) {
  if (kept.empty() || kept.back() != point) kept.push_back(point);
}

void KeepColumn(std::span<const double> y, std::size_t begin, std::size_t end, std::vector<std::size_t>& kept) {
  std::size_t lowest = begin;
  std::size_t highest = begin;
  for (std::size_t i = begin + 1; i < end; ++i) {
    if (y[i] < y[lowest]) lowest = i;
    if (y[i] > y[highest]) highest = i;
  }
  if (end - begin <= 2) {
    Keep(begin, kept);
    Keep(end - 1, kept);
    return;
  }
  // From the last point first to the nearer end: a line that goes there and back takes twice the time to draw.
  const double last = y[kept.back()];
  const bool is_low_nearer = last - y[lowest] <= y[highest] - last;
  Keep(is_low_nearer ? lowest : highest, kept);
  Keep(is_low_nearer ? highest : lowest, kept);
}

}  // namespace

std::vector<std::size_t> PointsToDraw(std::span<const double> x, std::span<const double> y,
                                      std::span<const double> edges) {
  std::vector<std::size_t> kept;
  if (x.empty() || edges.size() < 2) return kept;
  const auto index_of = [&](double edge) {
    return static_cast<std::size_t>(std::lower_bound(x.begin(), x.end(), edge) - x.begin());
  };
  kept.reserve(2 * edges.size() + 2);
  std::size_t begin = index_of(edges.front());
  kept.push_back(begin > 0 ? begin - 1 : 0);
  for (const double edge : edges.subspan(1)) {
    const std::size_t end = index_of(edge);
    if (end > begin) KeepColumn(y, begin, end, kept);
    begin = std::max(begin, end);
  }
  Keep(std::min(begin, x.size() - 1), kept);
  return kept;
}

}  // namespace talven
