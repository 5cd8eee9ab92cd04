#include "simulation/PrepareReflections.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <random>

namespace talven {
namespace {

using Reflections = std::vector<std::array<float, 5>>;

/// The merge as a plain loop over h, k, l, F squared and angle, entry after entry.
void RemoveDuplicatesPlainly(Reflections& rows) {
  for (bool merged = true; std::exchange(merged, false);) {
    for (std::size_t i = 1; i < rows.size(); ++i) {
      if (!std::equal(rows[i].begin(), rows[i].begin() + 3, rows[i - 1].begin())) continue;
      merged = true;
      rows[i - 1][3] = (rows[i - 1][3] + rows[i][3]) * 0.5F;
      rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(i));
    }
  }
}

Reflections RowsOf(const ReflectionList& list) {
  Reflections rows;
  for (std::int32_t i = 1; i <= list.ReflectionCount; ++i)
    rows.push_back({float(list.H[i]), float(list.K[i]), float(list.L[i]), list.F2[i], list.TwoTheta[i]});
  return rows;
}

TEST(RemoveDuplicates, AgreesWithThePlainLoop) {
  std::mt19937 random(7);
  auto list = std::make_unique<ReflectionList>();
  for (int round = 0; round < 300; ++round) {
    list->ReflectionCount = static_cast<std::int32_t>(random() % 40);
    for (std::int32_t i = 1; i <= list->ReflectionCount; ++i) {
      for (auto* row : {&list->H, &list->K, &list->L}) (*row)[i] = random() % 4 == 0 ? 1 : 0;
      list->F2[i] = static_cast<float>(random() % 100'000) / 7.0F;
      list->TwoTheta[i] = static_cast<float>(i);
    }
    Reflections plain = RowsOf(*list);
    RemoveDuplicatesPlainly(plain);
    RemoveDuplicates(*list);
    ASSERT_EQ(RowsOf(*list), plain);
  }
}

}  // namespace
}  // namespace talven
