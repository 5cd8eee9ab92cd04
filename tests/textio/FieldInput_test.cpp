#include "textio/FieldInput.h"

#include <gtest/gtest.h>

namespace talven {
namespace {

TEST(FieldInput, WholeNumbers) {
  EXPECT_EQ(ReadI("  12"), 12);
  EXPECT_EQ(ReadI("-  3"), -3);
  EXPECT_EQ(ReadI("1 2 "), 12);
  EXPECT_EQ(ReadI("    "), 0);
  EXPECT_EQ(ReadI(""), 0);
  EXPECT_EQ(ReadI("-2147483648"), std::numeric_limits<std::int32_t>::min());
  for (const char* bad : {"1.0", "a", "-", "+ ", "1-", "--1", "2147483648", "99999999999999999999", "1\t"})
    EXPECT_FALSE(ReadI(bad)) << bad;
}

TEST(FieldInput, RealsWithImpliedDecimalsBlanksAndExponents) {
  struct Case {
    const char* field;
    int decimals;
    float value;
  };
  for (const Case& c : {
           Case{"  123.45", 0, 123.45F},
           {"     123", 0, 123.0F},
           {"     123", 2, 1.23F},
           {"   123. ", 2, 123.0F},
           {"   -.5  ", 2, -0.5F},
           {"  1 2 3 ", 2, 1.23F},
           {" 1.5E3", 2, 1500.0F},
           {" 15e2", 1, 150.0F},
           {" 1.5D+3", 0, 1500.0F},
           {" 1.5-3", 0, 0.0015F},
           {"15-3", 0, 0.015F},
           {"+7", 0, 7.0F},
           {"", 3, 0.0F},
           {"      ", 3, 0.0F},
           {"1.0E-60", 0, 0.0F},
           {"0.0000000000000000000000000000000000000000000000000000000001", 0, 0.0F},
           {"16777217", 0, 16777216.0F},
           {"12345678901234567890", 0, 12345678901234567890.0F},
       })
    EXPECT_EQ(ReadF(c.field, c.decimals), c.value) << c.field;
  for (const char* bad : {"abc", "1.2.3", "NaN", "inf", "********", ".", "-", "1E", "1E+", "1,5", "0x10", "1E60",
                          "1e99999", "1.0 f", "\t1"})
    EXPECT_FALSE(ReadF(bad, 0)) << bad;
}

TEST(FieldInput, RoundsOnceToTheStoredReal) {
  // Just above the half of two neighbouring stored reals, but not as a 64-bit real.
  EXPECT_EQ(ReadF("1.00000005960464477539062500000001", 0), 1.00000012F);
  EXPECT_EQ(ReadReal<double>("0.1"), 0.1);
  EXPECT_FALSE(ReadReal<double>("nan"));
}

}  // namespace
}  // namespace talven
