#include "patterns/FineGrid.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <random>

#include "textio/Numbers.h"

namespace talven::test {
namespace {

TEST(FineGrid, ChoosesTheStepOfThePattern) {
  for (const auto& [step, fine] : {std::pair(0.05F, 0.01F), std::pair(0.29F, 0.01F), std::pair(0.57F, 0.01F),
                                   std::pair(0.025F, 0.005F), std::pair(0.012F, 7.0F), std::pair(0.01002F, 7.0F)}) {
    float FineStep = 7.0F;
    ChooseFineStep(step, FineStep);
    EXPECT_EQ(FineStep, fine) << step;
  }
}

TEST(FineGrid, FillsGapsWithADoublingIncrement) {
  std::vector<float> wide(210, 0.0F);
  wide[0] = 1;
  wide[202] = 2;  // 201 cells to the next one set
  // Cell 0 is always 0; a cell filled with 0 is not looked at again.
  using Lists = std::pair<std::vector<float>, std::vector<float>>;
  for (const auto& [before, after] : {Lists{{10, 0, 30, 1}, {10, 30, 30, 1}}, Lists{{0, 0, 8, 1}, {4, 8, 8, 1}},
                                      Lists{{10, 0, 0, 0, 0, 30, 1}, {10, 15, 20, 30, 50, 30, 1}},
                                      Lists{{30, 0, 0, 0, 0, 10, 1}, {30, 25, 20, 10, -10, 10, 1}},
                                      Lists{{-1, 0, 0, 1, 5}, {-1, 0, 1, 1, 5}}, Lists{wide, wide}}) {
    const auto counts = std::make_unique<CellCounts>();
    for (std::int32_t cell = 1; const float count : before) (*counts)[cell++] = count;
    FillGaps(*counts, static_cast<std::int32_t>(before.size()));
    for (std::int32_t cell = 1; const float count : after) EXPECT_EQ((*counts)[cell++], count) << before.size();
  }
}

/// The filling as it is told, without a bound to the search.
void FillGapsPlainly(CellCounts& counts, std::int32_t cell_count) {
  for (std::int32_t i = 1; i == 1 || i < cell_count; ++i) {
    if (counts[i] != 0.0F) continue;
    std::int32_t j = i + 1;
    while (j <= kLargestReformatCount && counts[j] == 0.0F) ++j;
    if (j > kLargestReformatCount || j - i > 200) return;
    const double p = counts[i - 1];
    double d = std::fabs(counts[j] - p) / (j - i);
    if (counts[j] < p) d = -d;
    for (std::int32_t m = 1; m <= j - i; ++m, d *= 2) counts[i - 1 + m] = Store(p + d);
  }
}

struct Grid {
  CellCounts counts, plain_counts;
  ReformatArray angles, X, Y;
};

/// One bin against every cell.
float SumPlainly(const Grid& grid, std::int32_t cell_count, double low, double high) {
  float sum = 0.0F;
  for (std::int32_t j = 1; j <= cell_count; ++j)
    if (grid.angles[j] > low && grid.angles[j] < high) sum = Store(sum + static_cast<double>(grid.plain_counts[j]));
  return sum;
}

TEST(FineGrid, FillsAndBinsAsThePlainLoopsDo) {
  std::mt19937 random(4);
  const auto pick = [&random](int low, int high) { return std::uniform_int_distribution(low, high)(random); };
  const auto grid = std::make_unique<Grid>();  // Kept from pattern to pattern, leftovers and all.
  for (int pattern = 0; pattern < 60; ++pattern) {
    const std::int32_t cell_count = pick(0, 3000);
    const int widest = pick(0, 9) == 0 ? 260 : pick(1, 60);
    for (std::int32_t cell = 1; cell <= cell_count + 5; cell += pick(1, widest))
      grid->counts[cell] = grid->plain_counts[cell] = static_cast<float>(pick(0, 4) == 0 ? 0 : pick(-50, 90000)) / 7;
    const float fine_step = pick(0, 1) == 0 ? 0.01F : 0.005F;
    const float first = static_cast<float>(pick(1, 4000)) / 100;
    const double step = static_cast<float>(pick(1, 200)) / 1000;
    const std::int32_t bin_count = Truncate(cell_count * static_cast<double>(fine_step) / step) + 2;
    ASSERT_TRUE(BuildFineGrid(first, first + 31.0F, fine_step, grid->angles));
    FillGaps(grid->counts, cell_count);
    FillGapsPlainly(grid->plain_counts, cell_count);
    BinCells(grid->angles, grid->counts, cell_count, first, step, bin_count, grid->X, grid->Y);
    double low = first;
    for (std::int32_t bin = 1; bin <= bin_count; ++bin, low += step) {
      const float sum = SumPlainly(*grid, cell_count, low, low + step);
      ASSERT_TRUE(grid->Y[bin] == sum || std::isnan(grid->Y[bin] + sum)) << "pattern " << pattern << ", bin " << bin;
    }
  }
}

}  // namespace
}  // namespace talven::test
