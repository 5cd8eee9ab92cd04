#include "patterns/FineGrid.h"

#include <algorithm>
#include <cmath>

#include "textio/Numbers.h"

namespace talven {
namespace {

constexpr double kMultipleTolerance = 0.00001;
constexpr std::int32_t kWidestGap = 200;

/// What is left of a step after its whole multiples of `unit`, of which `per_degree` make a degree.
float RestAfterMultiples(float step, double unit, double per_degree) {
  const float multiples = std::trunc(Store(step * per_degree));
  return Store(step - multiples * unit);
}

/// Fills the empty cells from `empty` to the next set cell. False if there is none within reach. On purpose the
/// increment doubles from cell to cell: no straight line comes of it.
bool FillGap(CellCounts& FineCounts, std::int32_t empty) {
  const std::int32_t reach = std::min(empty + kWidestGap, kLargestReformatCount);
  std::int32_t set = empty + 1;
  while (set <= reach && FineCounts[set] == 0.0F) ++set;
  if (set > reach) return false;
  const std::int32_t gap = set - empty;
  const double before = FineCounts[empty - 1];
  double increment = std::fabs(FineCounts[set] - before) / gap;
  if (FineCounts[set] < before) increment = -increment;
  for (std::int32_t cell = empty; cell < set; ++cell) {
    FineCounts[cell] = Store(before + increment);
    increment += increment;
  }
  return true;
}

}  // namespace

void ChooseFineStep(float step, float& FineStep) {
  if (RestAfterMultiples(step, 0.005, 200.0) < kMultipleTolerance) FineStep = 0.005F;
  if (RestAfterMultiples(step, 0.01, 100.0) < kMultipleTolerance) FineStep = 0.01F;
}

bool BuildFineGrid(float first_angle, float last_angle, float FineStep, ReformatArray& FineGrid) {
  const double step = FineStep;
  const double range = static_cast<double>(last_angle) - first_angle;
  const std::int32_t count = NearestWhole(Store(range / step + 0.5 * step));
  if (count > kLargestReformatCount) return false;
  double angle = Store(first_angle - step);
  for (std::int32_t cell = 1; cell <= count; ++cell) {
    angle += step;
    FineGrid[cell] = Store(angle);
  }
  return true;
}

bool PlaceRows(const ReformatArray& X, const ReformatArray& Y, std::int32_t row_count, float first_angle,
               float FineStep, CellCounts& FineCounts) {
  const double step = FineStep;
  for (std::int32_t i = 1; i <= row_count; ++i) {
    const std::int32_t cell = NearestWhole((static_cast<double>(X[i]) - first_angle) / step + 0.5 * step);
    if (cell > kLargestReformatCount) return false;
    FineCounts[std::max(cell, 1)] = Y[i];
  }
  return true;
}

void FillGaps(CellCounts& FineCounts, std::int32_t cell_count) {
  std::int32_t cell = 1;
  do {
    if (FineCounts[cell] == 0.0F && !FillGap(FineCounts, cell)) return;
    ++cell;
  } while (cell < cell_count);
}

void BinCells(const ReformatArray& FineGrid, const CellCounts& FineCounts, std::int32_t cell_count, double first_angle,
              double step, std::int32_t bin_count, ReformatArray& X, ReformatArray& Y) {
  std::int32_t cell = 1;
  double low = first_angle;
  for (std::int32_t bin = 1; bin <= bin_count; ++bin) {
    const double high = low + step;
    X[bin] = Store(high);
    Y[bin] = 0.0F;
    while (cell <= cell_count && FineGrid[cell] <= low) ++cell;
    for (; cell <= cell_count && FineGrid[cell] < high; ++cell)
      Y[bin] = Store(static_cast<double>(Y[bin]) + FineCounts[cell]);
    low = high;
  }
}

void Rescale(std::span<float> counts) {
  double smallest = 1'000'000'000.0;
  for (float& count : counts) {
    count = std::fabs(count);
    if (count != 0.0F && count < smallest) smallest = count;
  }
  const double unit = smallest > 100.0 ? 0.01 * smallest : 0.5 * smallest;
  for (float& count : counts) {
    if (count == 0.0F) count = Store(smallest);
    count = Store(count * (1.0 / unit));
  }
}

}  // namespace talven
