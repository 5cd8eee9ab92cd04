// The steps from a cell and a list to a sized grid that a whole run shows too little of.

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>

#include "simulation/CellGeometry.h"
#include "simulation/DuplicateRemoval.h"
#include "simulation/PatternGrid.h"

namespace talven {
namespace {

TEST(ClassifyCell, ByLengthsAndAngles) {
  using Row = std::tuple<float, float, float, float, float, float, std::int32_t>;
  for (const auto& [a, b, c, alpha, beta, gamma, expected] :
       {Row{7, 8, 9, 80, 85, 95, 1}, Row{7, 7.1F, 9, 80, 85, 95, 1}, Row{7, 8, 9, 90, 100, 90, 2},
        Row{7, 8, 9, 90, 90, 90, 3}, Row{7, 8, 9, 90, 120, 90, 3}, Row{7, 7, 9, 90, 90, 90, 4},
        Row{7, 7, 7, 90, 90, 90, 5}, Row{7, 7, 7, 60, 60, 60, 6}, Row{7, 7, 9, 90, 120, 90, 7},
        Row{7, 7.3F, 9, 90, 100, 90, 11}, Row{7, 7.1F, 7.2F, 90, 95, 90, 21}, Row{7, 7, 7, 90, 120, 90, 23},
        Row{4.9F, 4.9F, 5.4F, 90, 90, 120, 1}, Row{7, 7.36F, 9, 90, 90, 90, 3}, Row{7, 8, 9, 90, 90.02F, 90, 2},
        Row{7, 7.3F, 7.36F, 90, 90, 90, 5}}) {
    const UnitCell cell{.a = a, .b = b, .c = c, .alpha = alpha, .beta = beta, .gamma = gamma};
    EXPECT_EQ(ClassifyCell(cell, 0.01), expected) << a << ' ' << b << ' ' << c << ' ' << beta;
  }
}

/// The merge as a plain loop, entry after entry, with the tail of the list moved up each time.
void RemoveDuplicatesPlainly(ReflectionList& list) {
  for (bool merged = true; merged;) {
    merged = false;
    for (std::int32_t i = 1; i < list.ReflectionCount; ++i) {
      if (list.H[i] != list.H[i + 1] || list.K[i] != list.K[i + 1] || list.L[i] != list.L[i + 1]) continue;
      merged = true;
      list.F2[i] = (list.F2[i] + list.F2[i + 1]) * 0.5F;
      --list.ReflectionCount;
      for (auto* row : {&list.H, &list.K, &list.L})
        for (std::int32_t j = i + 1; j <= list.ReflectionCount; ++j) (*row)[j] = (*row)[j + 1];
      for (auto* row : {&list.F2, &list.TwoTheta})
        for (std::int32_t j = i + 1; j <= list.ReflectionCount; ++j) (*row)[j] = (*row)[j + 1];
    }
  }
}

TEST(RemoveDuplicates, AgreesWithThePlainLoop) {
  std::mt19937 random(7);
  for (int round = 0; round < 300; ++round) {
    auto fast = std::make_unique<ReflectionList>();
    fast->ReflectionCount = static_cast<std::int32_t>(random() % 40);
    for (std::int32_t i = 1; i <= fast->ReflectionCount; ++i) {
      for (auto* row : {&fast->H, &fast->K, &fast->L}) (*row)[i] = random() % 4 == 0 ? 1 : 0;
      fast->F2[i] = static_cast<float>(random() % 100'000) / 7.0F;
      fast->TwoTheta[i] = static_cast<float>(i);
    }
    auto plain = std::make_unique<ReflectionList>(*fast);
    RemoveDuplicates(*fast);
    RemoveDuplicatesPlainly(*plain);
    ASSERT_EQ(fast->ReflectionCount, plain->ReflectionCount);
    const auto row = [](const ReflectionList& list, std::int32_t i) {
      return std::tuple(list.H[i], list.K[i], list.L[i], list.F2[i], list.TwoTheta[i]);
    };
    for (std::int32_t i = 1; i <= plain->ReflectionCount; ++i) ASSERT_EQ(row(*fast, i), row(*plain, i));
  }
}

TEST(SizeGrid, CutsWhatTheStoredStepGives) {
  auto grid = std::make_unique<PatternGrid>();
  using Row = std::tuple<float, float, float, std::int32_t, std::int32_t>;
  for (const auto& [highest, step, low, top, points] :
       {Row{39.0F, 0.05F, 4.0F, 40, 719}, Row{39.99F, 0.05F, 4.0F, 40, 719}, Row{40.0F, 0.05F, 4.0F, 41, 739},
        Row{0.0F, 0.05F, 0.5F, 1, 9}, Row{3.0F, 0.05F, 4.0F, 4, 0}, Row{100.0F, 0.001F, 4.0F, 101, 96999}}) {
    SizeGrid(highest, step, low, *grid);
    EXPECT_EQ(std::pair(grid->TopAngle, grid->PointCount), std::pair(top, points)) << highest;
  }
}

}  // namespace
}  // namespace talven
