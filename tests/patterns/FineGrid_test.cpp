#include "patterns/FineGrid.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <random>

#include "textio/Numbers.h"

namespace talven {
namespace {

TEST(FineGrid, ChoosesTheStepOfThePattern) {
  for (const auto& [step, fine] :
       {std::pair(0.29F, 0.01F), {0.57F, 0.01F}, {3e7F, 0.01F}, {0.025F, 0.005F}, {0.012F, 7.0F}, {0.01002F, 7.0F}}) {
    float FineStep = 7.0F;
    ChooseFineStep(step, FineStep);
    EXPECT_EQ(FineStep, fine) << step;
  }
}

TEST(FineGrid, FillsGapsWithADoublingIncrement) {
  const auto counts = std::make_unique<CellCounts>();
  for (const auto& [cell, count] : {std::pair(2, 8.0F), {7, 40.0F}, {12, -40.0F}, {14, 1.0F}, {215, 7.0F}, {417, 7.0F}})
    (*counts)[cell] = count;
  FillGaps(*counts, 300);
  // Cell 9 first becomes 0 and is then a gap of its own.
  std::int32_t cell = 1;
  for (const int count : {8, 8, 16, 24, 40, 72, 40, 20, -40, -40, -120, -40, 1, 1})
    EXPECT_EQ((*counts)[cell++], static_cast<float>(count));
  EXPECT_EQ((*counts)[15], 1.03F) << "200 cells to the next one set";
  EXPECT_EQ((*counts)[216], 0.0F) << "201 cells";
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

TEST(FineGrid, FillsAndBinsAsThePlainLoopsDo) {
  std::mt19937 random(4);
  const auto pick = [&random](int low, int high) { return std::uniform_int_distribution(low, high)(random); };
  // Kept from pattern to pattern, leftovers and all.
  static CellCounts counts, plain_counts;
  static ReformatArray angles, x, y;
  for (int pattern = 0; pattern < 60; ++pattern) {
    const std::int32_t cell_count = pick(0, 3000);
    const int widest = pick(0, 9) == 0 ? 260 : pick(1, 60);
    for (std::int32_t cell = 1; cell <= cell_count + 5; cell += pick(1, widest))
      counts[cell] = plain_counts[cell] = static_cast<float>(pick(0, 4) == 0 ? 0 : pick(-50, 90000)) / 7;
    const float fine_step = pick(0, 1) == 0 ? 0.01F : 0.005F;
    const float first = static_cast<float>(pick(1, 4000)) / 100;
    const double step = static_cast<float>(pick(1, 200)) / 1000;
    const std::int32_t bin_count = Truncate(cell_count * static_cast<double>(fine_step) / step) + 2;
    ASSERT_TRUE(BuildFineGrid(first, first + 31.0F, fine_step, angles));
    FillGaps(counts, cell_count);
    FillGapsPlainly(plain_counts, cell_count);
    BinCells(angles, counts, cell_count, first, step, bin_count, x, y);
    double low = first;
    for (std::int32_t bin = 1; bin <= bin_count; ++bin, low += step) {
      float sum = 0.0F;
      for (std::int32_t j = 1; j <= cell_count; ++j)
        if (angles[j] > low && angles[j] < low + step) sum = Store(sum + static_cast<double>(plain_counts[j]));
      ASSERT_TRUE(y[bin] == sum || (std::isnan(y[bin]) && std::isnan(sum))) << pattern << ", bin " << bin;
    }
  }
}

}  // namespace
}  // namespace talven
