// Options 5 and 6 by themselves: DUMMY.HKL made of a cell, and of an FCF file.
#include <gtest/gtest.h>

#include "support/Session.h"
#include "support/TestFiles.h"

namespace talven::test {
namespace {

struct DummyHkl : testing::Test, TestDirectory {};

/// An interactive run of job ABC with a cell, given as what stands behind CELL, and with answers to its forms.
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
}

TEST_F(DummyHkl, InsTakesTheLimitsAsTheyCome) {
  EXPECT_EQ(LineOf(RunCell("\t1,9.0/8.9 3.0 90 90 90 of all axes").pane, 5), " Hmax Kmax and Lmax are    6   5   3");
}

TEST_F(DummyHkl, InsRoundsWhereTheLastDigitShows) {
  const char* const axis_only = "1019=1\n1020=0\n1021=0\nok\n";
  // From stored cosines the volume would be 30538.477, and from unstored ones the angle of (1,0,1) 65.84 degrees.
  EXPECT_EQ(LineOf(RunCell(" 1.54 58 30 23 73 70 112", axis_only).pane, 9), "   Volume  30538.479");
  RunCell(" 1.54 2.3 3.8 2.6 64 84 61");
  EXPECT_EQ(Count(ReadFile("DUMMY.HKL"), "   1   0   1  100.00    1.00    0.54   65.83\n"), 1);
  // The sine is 1.00000004, which is stored as 1.
  RunCell(" 2.0006 1.0003 1 1 90 90 90", axis_only);
  EXPECT_EQ(ReadFile("DUMMY.HKL"), "   1   0   0  100.00    1.00    1.00    0.90\n");
}

// Of the 64 reflections of the box of limits 2 2 2.
TEST_F(DummyHkl, InsRemovesAGeneralAbsence) {
  for (const auto& [answers, rows, present, absent] :
       {std::tuple("ok\n", 64, "   1   0   0", "   0   0   0"),
        {"1015=on\nok\n1006=1\nok\n", 33, "   1  -1   1", "   2  -1   0"},
        {"1015=on\nok\n1006=2\nok\n", 34, "   1   2  -1", "   2   0  -1"},
        {"1015=on\nok\nok\n", 33, "   1  -1   2", "   1   0   0"},
        {"1015=on\nok\n1006=4\nok\n", 18, "   1  -1   1", "   1   1   0"},
        {"1015=on\nok\n1006=5\nok\n", 32, "   1  -1   0", "   2   0  -1"}}) {
    RunCell(" 1 2.9 2.9 2.9 90 90 90", answers);
    EXPECT_EQ(CountLines(ReadFile("DUMMY.HKL")), rows) << answers;
    EXPECT_TRUE(Has(present) && !Has(absent)) << answers;
  }
}

TEST_F(DummyHkl, InsTellsWhatIsWrong) {
  EXPECT_EQ(RunSession({"abc", "C:"}, "1006=5\nok\n").Boxes(), "INS File (d1) NOT Found\n");
  EXPECT_EQ(Started(), "mirade.exe abc\n") << "the job name was not folded";
  EXPECT_EQ(RunSession({"abc", "C:"}, "1006=6\nok\nexit\n").Boxes(), "FCF File NOT Found\n");
  EXPECT_FALSE(Exists("DUMMY.HKL"));
  for (const auto& [cell, found] : {std::pair(" 1 2 3 4 90 90", "6"), {" 1 2 3 4 90 9o 90", "\"9o\""}}) {
    const std::string error = std::string("ABC.INS, line 3: expected 7 numbers after CELL, found ") + found + "\n";
    EXPECT_TRUE(RunCell(cell).messages.ends_with("fatal I/O error: " + error)) << error;
    EXPECT_EQ(ReadFile("DUMMY.HKL"), "");
  }
}

TEST_F(DummyHkl, InsKeepsCellAndFoldedNameForTheNextRun) {
  WriteFile("ABC.INS", "TITL no cell\n");
  const std::string option = "1006=5\nok\nok\n";
  EXPECT_EQ(LineOf(RunSession({"ABC", "C:"}, option).pane, 5), " Hmax Kmax and Lmax are    1   1   1");
  EXPECT_EQ(LineOf(ReadFile("DUMMY.HKL"), 1), "   0  -1   0  100.00    1.00     NaN     NaN");

  // Once the name is folded the other spelling is found first.
  WriteFile("abc.INS", "CELL 1 2.9 2.9 2.9 90 90 90\n");
  const SessionResult result = RunSession({"abc", "C:"}, option + option);
  EXPECT_LT(result.pane.find("abc.INS\n"), result.pane.find("ABC.INS\n"));
  EXPECT_EQ(Count(result.pane, " are    2   2   2\n"), 2);
}

constexpr const char* kOption6 = "1006=6\nok\nexit\n";

/// A LIST 4 row in the narrow layout.
std::string Row(const std::string& value, const std::string& indices = "   1   2   3", char status = 'o') {
  return indices + std::string(12 - value.size(), ' ') + value + "        1.00      1.00 " + status + "\n";
}

std::string Dummy(const std::string& fcf) {
  WriteFile("abc.fcf", fcf);
  const SessionResult result = RunSession({"abc", "C:"}, kOption6);
  EXPECT_EQ(result.pane, "   The file DUMMY.HKL has been written\n") << result.messages;
  return ReadFile("DUMMY.HKL");
}

TEST_F(DummyHkl, FcfEndsAtTheEndOfTheFile) {
  const std::string head = std::string(47, 'x') + "O\n_list_code 4\n" + Row("9.00", "   8   8   8", '<');
  const std::string list = "   1   2   3      4.      2.\n";
  EXPECT_EQ(Dummy(head + Row("4.00", "   1   2   3") + Row("4.00", "   1   2   3", '<')), list + list);
  EXPECT_EQ(Dummy("\xEF\xBB\xBF" + head + "   1   2   3        4.00        1.00      1.00 o\r\n"), list);
}

TEST_F(DummyHkl, FcfReadsTheWideLayout) {
  EXPECT_EQ(Dummy("   1   2   3        400.00        390.11         3.02 o\n"
                  "  -1 -12   3        123456        390.11         3.02 <\n"),
            "   1   2   3    400.     20.\n  -1 -12   3   1235.     35.\n");
  // A line with blank fields is no row.
  EXPECT_EQ(Dummy(std::string(54, ' ') + "'x, y, z'\n" + Row("400.00")), "   1   2   3    400.     20.\n");
  WriteFile("abc.fcf",
            "   1   2   3        400.00        390.11         3.02 o\n"
            "   1   2   4          2.75        390.11 ************ o\n");
  EXPECT_EQ(RunSession({"abc", "C:"}, kOption6).exit_code, 1) << "by the narrow columns it would be 2";
}

TEST_F(DummyHkl, FcfTellsWhatIsWrong) {
  for (const auto& [fcf, error] :
       {std::pair(std::string("_list_code 6\n"), "a LIST 4 row, found end of file\n"),
        {Row("4.00") + "\x01 row of letters\n", "h, k, l and a calculated F squared, found \"? row of letters\"\n"}}) {
    WriteFile("abc.fcf", fcf);
    const std::string messages = RunSession({"abc", "C:"}, kOption6).messages;
    EXPECT_TRUE(messages.ends_with(std::string("fatal I/O error: abc.fcf, line 2: expected ") + error)) << messages;
  }
}

}  // namespace
}  // namespace talven::test
