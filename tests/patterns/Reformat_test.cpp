#include "patterns/Reformat.h"

#include <gtest/gtest.h>

namespace talven {

TEST(WavelengthMove, FollowsBraggsLaw) {
  const WavelengthMove to_copper{0.71069F, 1.54F}, to_molybdenum{1.54F, 0.71069F};
  EXPECT_NEAR(to_copper.LimitAngle(), 26.10895, 1e-5);
  EXPECT_EQ(to_molybdenum.LimitAngle(), 170.0F);
  EXPECT_NEAR(to_molybdenum.Move(26.0), 23.34328, 1e-5);
  EXPECT_FALSE((WavelengthMove{1.54F, 1.5409F}).MovesAngles());
  IngHeader header{.FirstAngle = 20.0F, .LastAngle = 60.0F};
  to_copper.MoveRange(header);
  EXPECT_NEAR(header.FirstAngle, 44.20685, 1e-5);
  EXPECT_NEAR(header.LastAngle, 143.61026, 1e-4) << "sine 0.95";
}

}  // namespace talven
