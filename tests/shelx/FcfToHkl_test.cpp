#include <gtest/gtest.h>

#include "support/Session.h"
#include "support/TestFiles.h"

namespace talven::test {
namespace {

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

TEST(FcfToHkl, WritesValueAndSigma) {
  TestDirectory directory;
  struct Case {
    const char* value;
    const char* fields;
  };
  for (const Case& c :
       {Case{"-3.00", "      1.      3."}, Case{"0.00", "      1.      3."}, Case{"1.00", "      1.      3."},
        Case{"1.01", "      1.      1."}, Case{"400.00", "    400.     20."}, Case{"40000", "    400.     20."},
        Case{"123.40", "    123.     11."}})
    EXPECT_EQ(Dummy(Row(c.value)), std::string("   1   2   3") + c.fields + "\n") << c.value;
}

TEST(FcfToHkl, RescalesTheWholeListOnceAValuePassesTheThreshold) {
  TestDirectory directory;
  EXPECT_EQ(Dummy(Row("200000.00") + Row("400.00") + Row("30.00") + Row("0.00")),
            "   1   2   3   2000.     45.\n"
            "   1   2   3      4.      2.\n"
            "   1   2   3      0.      2.\n"
            "   1   2   3      0.      3.\n");
  EXPECT_EQ(Dummy(Row("100000.00")), "   1   2   3 100000.    316.\n") << "the threshold itself is not above it";
}

TEST(FcfToHkl, EndsAtZeroIndicesOrAtTheEndOfTheFile) {
  TestDirectory directory;
  const std::string head = std::string(47, 'x') + "O\n_list_code 4\n" + Row("9.00", "   8   8   8", '<');
  const std::string list = "   1   2   3      4.      2.\n";
  EXPECT_EQ(Dummy(head + Row("4.00") + Row("1.00", "   0   0   0") + "not a row\n"), list);
  EXPECT_EQ(Dummy(head + Row("4.00", "   1   2   3") + Row("4.00", "   1   2   3", '<')), list + list);
  EXPECT_EQ(Dummy("\xEF\xBB\xBF" + head + "   1   2   3        4.00        1.00      1.00 o\r\n"), list);
}

TEST(FcfToHkl, ReadsTheWideLayout) {
  TestDirectory directory;
  EXPECT_EQ(Dummy("   1   2   3        400.00        390.11         3.02 o\n"
                  "  -1 -12   3       1234.56        390.11         3.02 <\n"),
            "   1   2   3    400.     20.\n"
            "  -1 -12   3   1235.     35.\n");
  EXPECT_EQ(Dummy(std::string(54, ' ') + "'x, y, z'\n" + Row("400.00")), "   1   2   3    400.     20.\n")
      << "a line with blank fields is no row";
  WriteFile("abc.fcf",
            "   1   2   3        400.00        390.11         3.02 o\n"
            "   1   2   4          2.75        390.11 ************ o\n");
  EXPECT_EQ(RunSession({"abc", "C:"}, kOption6).exit_code, 1) << "by the narrow columns it would be 2";
}

TEST(FcfToHkl, TellsWhatIsWrong) {
  TestDirectory directory;
  SessionResult result = RunSession({"abc", "C:"}, kOption6);
  EXPECT_EQ(result.Boxes(), "FCF File NOT Found\n");
  EXPECT_FALSE(Exists("DUMMY.HKL"));

  WriteFile("abc.fcf", "_list_code 6\n");
  result = RunSession({"abc", "C:"}, kOption6);
  EXPECT_EQ(result.exit_code, 1);
  EXPECT_EQ(result.messages.substr(result.messages.find("fatal")),
            "fatal I/O error: abc.fcf, line 2: expected a LIST 4 row, found end of file\n");
  EXPECT_EQ(ReadFile("DUMMY.HKL"), "");

  WriteFile("abc.fcf", Row("4.00") + "\x01 row of letters\n");
  result = RunSession({"abc", "C:"}, kOption6);
  EXPECT_EQ(result.messages.substr(result.messages.find("fatal")),
            "fatal I/O error: abc.fcf, line 2: expected h, k, l and a calculated F squared, found "
            "\"? row of letters\"\n");
}

}  // namespace
}  // namespace talven::test
