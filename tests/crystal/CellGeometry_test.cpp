#include "crystal/CellGeometry.h"

#include <gtest/gtest.h>

namespace talven {

TEST(ClassifyCell, ByLengthsAndAngles) {
  using Row = std::tuple<float, float, float, float, float, float, std::int32_t>;
  for (const auto& [a, b, c, alpha, beta, gamma, expected] :
       {Row{7, 8, 9, 80, 85, 95, 1}, Row{7, 8, 9, 90, 90, 90, 3}, Row{7, 8, 9, 90, 120, 90, 3},
        Row{7, 7, 7, 60, 60, 60, 6}, Row{7, 7, 9, 90, 120, 90, 7}, Row{7, 7.3F, 9, 90, 100, 90, 11},
        Row{7, 7.1F, 7.2F, 90, 95, 90, 21}, Row{7, 7, 7, 90, 120, 90, 23}, Row{4.9F, 4.9F, 5.4F, 90, 90, 120, 1},
        Row{7, 7.36F, 9, 90, 90, 90, 3}, Row{7, 8, 9, 90, 90.02F, 90, 2}, Row{7, 7.3F, 7.36F, 90, 90, 90, 5},
        Row{7, 7, 9, 90, 90, 90, 4}, Row{7, 7.1F, 9, 80, 85, 95, 1}})
    EXPECT_EQ(ClassifyCell({.a = a, .b = b, .c = c, .alpha = alpha, .beta = beta, .gamma = gamma}, 0.01), expected);
}

}  // namespace talven
