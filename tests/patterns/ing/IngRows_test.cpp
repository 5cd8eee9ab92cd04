#include "patterns/ing/IngRows.h"

#include <gtest/gtest.h>

namespace talven::test {
namespace {

TEST(IngRows, EveryReaderCountsInItsOwnWay) {
  constexpr std::int32_t kHuge = 2'147'483'647;
  struct Case {
    float first, last, step;
    std::int32_t cut, nearest;
  };
  // 719.99998 steps; a peak height for a step; the wrong way round; a half; infinite; not a number.
  for (const Case& c : {Case{4, 40, 0.05F, 719, 720}, Case{4, 40, 99000, 0, 0}, Case{40, 4, 0.5F, -72, -72},
                        Case{0, 1.25F, 0.5F, 2, 3}, Case{4, 40, 0, kHuge, kHuge}, Case{4, 4, 0, 0, 0}}) {
    const IngHeader header{1.54F, c.first, c.last, c.step, 1.0F, 7};
    EXPECT_EQ(CountIngRows(kReformatRows, header), 7) << c.step;
    EXPECT_EQ(CountIngRows(kCifRows, header), c.cut) << c.step;
    EXPECT_EQ(CountIngRows(kAscRows, header), c.cut) << c.step;
    EXPECT_EQ(CountIngRows(kTxtRows, header), c.nearest) << c.step;
  }
}

}  // namespace
}  // namespace talven::test
