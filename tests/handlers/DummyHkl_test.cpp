// Option 5 by itself: DUMMY.HKL made of a cell.
#include <gtest/gtest.h>

#include "support/Session.h"
#include "support/TestFiles.h"

namespace talven::test {
namespace {

struct DummyHkl : testing::Test, TestDirectory {};

/// An interactive run of job ABC with a cell, given as what stands after CELL, and with answers to its forms.
SessionResult RunCell(const std::string& cell, const std::string& answers = "ok\n") {
  WriteFile("ABC.INS", "cell 1 1 1 1 1 1 1\n CELL 2 2 2 2 2 2 2\nCELL" + cell + "\nCELL 1 3 3 3 90 90 90\n");
  return RunSession({"ABC", "C:"}, "1006=5\nok\n" + answers + "exit\n");
}

bool Has(const std::string& indices) { return Count(ReadFile("DUMMY.HKL"), indices + "  100.00    1.00 ") == 1; }

TEST_F(DummyHkl, InsWritesTheHalfBox) {
  EXPECT_EQ(RunCell(" 1.0 10 10 10 90 90 90").pane,
            "ABC.INS\n\n    If there are general absences in the data it is\n"
            "    best to remove these general absences\n Hmax Kmax and Lmax are    6   6   6\n\n   CELL\n"
            "    1.0000  10.0000  10.0000  10.0000  90.0000  90.0000  90.0000\n   Volume   1000.000\n\n"
            "   The file DUMMY.HKL has been written\n");
  const std::string list = ReadFile("DUMMY.HKL");
  EXPECT_EQ(CountLines(list), 13 * 7 - 1 + 6 * 13 * 13);
  EXPECT_EQ(LineOf(list, 1), "   0  -6   0  100.00    1.00    0.30   34.92");
  EXPECT_TRUE(list.ends_with("\n   6   6   6  100.00    1.00    0.52   62.61\n"));
  EXPECT_TRUE(Has("   0  -3   0") && Has("   0   3   0") && !Has("   0  -6  -1") && !Has("   0   0   0"));
  EXPECT_EQ(LineOf(RunCell("\t1,9.0/8.9 3.0 90 90 90 of all axes").pane, 5), " Hmax Kmax and Lmax are    6   5   3");
}

TEST_F(DummyHkl, InsRoundsWhereTheLastDigitShows) {
  const char* const axis_only = "1019=1\n1020=0\n1021=0\nok\n";
  // From stored cosines the volume would be 30538.477, and from unstored ones the angle of (5,2,3) 24.87 degrees.
  EXPECT_EQ(LineOf(RunCell(" 1.54 58 30 23 73 70 112", axis_only).pane, 9), "   Volume  30538.479");
  RunCell(" 2.0755 12.2532 18.1985 2.2542 44.2054 56.2828 125.9662", "1019=5\n1020=2\n1021=3\nok\n");
  EXPECT_EQ(Count(ReadFile("DUMMY.HKL"), "   5   2   3  100.00    1.00    0.22   24.88\n"), 1);
  // The sine is 1.00000004, which is stored as 1.
  RunCell(" 2.0006 1.0003 1 1 90 90 90", axis_only);
  EXPECT_EQ(ReadFile("DUMMY.HKL"), "   1   0   0  100.00    1.00    1.00    0.90\n");
}

// Of the 64 reflections of the box of limits 2 2 2.
TEST_F(DummyHkl, AsksForAGeneralAbsence) {
  for (const auto& [answers, rows] : {std::pair("ok\n", 64),
                                      {"1015=on\nok\n1006=1\nok\n", 33},
                                      {"1015=on\nok\n1006=2\nok\n", 34},
                                      {"1015=on\nok\nok\n", 33},
                                      {"1015=on\nok\n1006=4\nok\n", 18},
                                      {"1015=on\nok\n1006=5\nok\n", 32}}) {
    RunCell(" 1 2.9 2.9 2.9 90 90 90", answers);
    EXPECT_EQ(CountLines(ReadFile("DUMMY.HKL")), rows) << answers;
  }
}

}  // namespace
}  // namespace talven::test
