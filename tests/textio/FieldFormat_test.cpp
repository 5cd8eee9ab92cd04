#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

#include "textio/Record.h"

namespace talven {
namespace {

std::string F(double value, std::size_t width, int decimals) {
  return std::string(Record().F(value, width, decimals).Text());
}

std::string G(double value) {
  return std::string(Record().G(value).Text());
}

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

TEST(FieldFormat, FixedFields) {
  struct Case {
    double value;
    std::size_t width;
    int decimals;
    const char* text;
  };
  for (const Case& c : {
           Case{1.54F, 10, 6, "  1.540000"},
           {123.4F, 8, 0, "    123."},
           {0.125, 6, 2, "  0.13"},  // exact halves go away from zero
           {-0.125, 6, 2, " -0.13"},
           {2.5, 4, 0, "  3."},
           {0.5, 4, 0, "  1."},
           {0.05F, 5, 1, "  0.1"},  // 0.05F lies above the half, 0.15F above, 0.35F below
           {0.35F, 5, 1, "  0.3"},
           {0.15, 5, 1, "  0.1"},  // as 64-bit value below the half
           {-0.33, 4, 2, "-.33"},
           {0.33, 4, 2, "0.33"},
           {0.999, 3, 2, "***"},
           {0.001, 4, 2, "0.00"},
           {-0.001, 5, 2, "-0.00"},
           {-0.0F, 4, 1, "-0.0"},
           {99999.99, 8, 2, "99999.99"},
           {99999.996, 8, 2, "********"},
           {-1234.0, 4, 0, "****"},
           {1e30, 12, 0, "************"},
           {999999999.0, 10, 0, "999999999."},
           {kNan, 5, 1, "  NaN"},
           {kNan, 2, 1, "**"},
           {kInfinity, 10, 2, "  Infinity"},
           {kInfinity, 7, 2, "    Inf"},
           {-kInfinity, 8, 2, "    -Inf"},
           {-kInfinity, 3, 2, "***"},
       })
    EXPECT_EQ(F(c.value, c.width, c.decimals), c.text) << c.value;
}

TEST(FieldFormat, WholeNumbersAndTexts) {
  EXPECT_EQ(Record().I(7, 4).I(-12, 4).I(12345, 4).I(1000, 4).Text(), "   7 -12****1000");
  EXPECT_EQ(Record().A("ab", 4).A("abcdef", 4).X(2).A("z").Text(), "  ababcd  z");
}

TEST(FieldFormat, GeneralFields) {
  struct Case {
    double value;
    const char* text;
  };
  for (const Case& c : {
           Case{1.54F, "    1.54000    "},
           {4.05F, "    4.05000    "},
           {123.0, "    123.000    "},
           {0.0, "    0.00000    "},
           {0.1F, "   0.100000    "},
           {-12.3456789, "   -12.3457    "},
           {9.9999996, "    10.0000    "},
           {999999.4F, "    999999.    "},
           {999999.7, "   0.100000E+07"},
           {1234567.0F, "   0.123457E+07"},
           {-0.012345678, "  -0.123457E-01"},
           {0.09999999, "   0.100000E+00"},
           {1000005.0, "   0.100001E+07"},  // an exact half, away from zero
           {1000015.0, "   0.100002E+07"},
           {1.0e-45F, "   0.140130E-44"},
           {kNan, "            NaN"},
           {-kInfinity, "      -Infinity"},
       })
    EXPECT_EQ(G(c.value), c.text) << c.value;
}

TEST(FieldFormat, AgreesWithExactPrintingOnRandomStoredValues) {
  std::mt19937 random(1);
  std::uniform_real_distribution<float> exponent(-3.0F, 7.0F);
  for (int i = 0; i < 200'000; ++i) {
    const float value = std::pow(10.0F, exponent(random)) * (i % 2 == 0 ? 1.0F : -1.0F);
    const int decimals = i % 5;
    // An exact half is the one case in which printf, which rounds to even, must differ.
    const double halves = std::ldexp(static_cast<double>(value), decimals + 1);
    if (halves == std::trunc(halves) && std::fmod(halves, 2.0) != 0.0) continue;
    std::array<char, 64> expected;
    std::snprintf(expected.data(), expected.size(), "%14.*f%s", decimals, static_cast<double>(value),
                  decimals == 0 ? "." : "");
    ASSERT_EQ(F(value, decimals == 0 ? 15 : 14, decimals), expected.data());
  }
}

}  // namespace
}  // namespace talven
