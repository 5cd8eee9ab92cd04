#include "patterns/ing/IngFile.h"

#include <gtest/gtest.h>

namespace talven::test {
namespace {

TEST(IngRows, EveryReaderCountsInItsOwnWay) {
  constexpr std::int32_t kHuge = 2'147'483'647;
  // 719.99998 steps; a peak height for a step; the wrong way round; a half; infinite; not a number.
  for (const auto& [first, last, step, cut, nearest] : {std::tuple(4.0F, 40.0F, 0.05F, 719, 720),
                                                        {4, 40, 99000, 0, 0},
                                                        {40, 4, 0.5F, -72, -72},
                                                        {0, 1.25F, 0.5F, 2, 3},
                                                        {4, 40, 0, kHuge, kHuge},
                                                        {4, 4, 0, 0, 0}}) {
    const IngHeader header{1.54F, first, last, step, 1.0F, 7};
    EXPECT_EQ(CountIngRows(kReformatRows, header), 7) << step;
    EXPECT_EQ(CountIngRows(kCifRows, header), cut) << step;
    EXPECT_EQ(CountIngRows(kAscRows, header), cut) << step;
    EXPECT_EQ(CountIngRows(kTxtRows, header), nearest) << step;
  }
}

}  // namespace
}  // namespace talven::test
