#include "app/fcalc/FcalcProgram.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/Session.h"
#include "support/TestFiles.h"

namespace talven::test {
namespace {

constexpr const char* kModel =
    "TITL urea made up\nREM XWMIN\nCELL 0.71073 5 6 7 90 90 90\nZERR 1 0 0 0 0 0 0\nLATT -1\nSFAC C\nUNIT 1\nLIST 4\n"
    "FVAR 1.0 1000\nC1 1 .1 .2 .3 11 0.01\nHKLF 4\n";
constexpr const char* kList =
    "   1   0   0  100.00    1.00\n# no row\n   0   1   2\n  -1   0   0\n   1   0   0 any\n   0   0   0\nx\n";

struct Result {
  int exit_code;
  std::string messages;
  std::string output;
};

Result Start(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), "talven-fcalc");
  std::ostringstream output;
  std::ostringstream messages;
  const int exit_code = RunFcalc(arguments, output, messages);
  return {exit_code, messages.str(), output.str()};
}

// One atom alone: F squared is that of carbon, (f + f')^2 + f''^2 times the square of its Debye-Waller factor, here by
// gemmi's tables.
TEST(Fcalc, WritesEachPairOnce) {
  const TestDirectory directory;
  WriteFile("abc.ins", kModel);
  WriteFile("Abc.hkl", kList);
  const Result result = Start({"ABC", "C:", "AUTO"});
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_EQ(result.messages,
            "talven-fcalc: ABC.INS: 1 atom, 1 operator, wavelength 0.71073 Angstrom\n"
            "talven-fcalc: ABC.fcf: 2 rows, 2 passed over as repeated\n");
  EXPECT_EQ(ReadFile("ABC.fcf"),
            "data_ABC\n_shelx_title 'urea made up'\n_shelx_refln_list_code          4\n_cell_length_a          5.0000\n"
            "_cell_length_b          6.0000\n_cell_length_c          7.0000\n_cell_angle_alpha      90.0000\n"
            "_cell_angle_beta       90.0000\n_cell_angle_gamma      90.0000\nloop_\n _refln_index_h\n _refln_index_k\n"
            " _refln_index_l\n _refln_F_squared_calc\n _refln_F_squared_meas\n _refln_F_squared_sigma\n"
            " _refln_observed_status\n"
            "   1   0   0       25.71       25.71      0.26 o\n   0   1   2       15.87       15.87      0.16 o\n");
  EXPECT_FALSE(Exists("ABC.fcf.unfinished"));
}

TEST(Fcalc, NamesTheBlockInOneWord) {
  const TestDirectory directory;
  WriteFile("a b c 1 2 3\xC3\xA9.INS", kModel);
  WriteFile("a b c 1 2 3\xC3\xA9.HKL", kList);
  EXPECT_EQ(Start({"a b c 1 2 3\xC3\xA9"}).exit_code, 0);
  EXPECT_TRUE(ReadFile("a b c 1 2 3\xC3\xA9.fcf").starts_with("data_a_b_c_1_2_3__\n_shelx"));
}

TEST(Fcalc, TellsWhatIsWrong) {
  const TestDirectory directory;
  WriteFile("ABC.INS", kModel);
  WriteFile("ABC.fcf", "of an earlier run\n");
  const struct {
    std::vector<std::string> arguments;
    const char* list;
    int exit_code;
    std::string text;
  } cases[] = {
      {{}, kList, 2, "usage"},
      {{"--nothing"}, kList, 2, "usage"},
      {{"ABC", "C"}, kList, 2, "usage"},
      {{"ABC", "C:", "auto"}, kList, 2, "usage"},
      {{"ABC", "C:", "AUTO", "x"}, kList, 2, "usage"},
      {{"NONE"}, kList, 1, "talven-fcalc: NONE.INS: "},
      {{"ABC"},
       "   1   0   x\n",
       1,
       "talven-fcalc: ABC.HKL, line 1: expected h, k and l in columns 1 to 12, found \"   1   0   x\"\n"},
      {{"ABC"},
       "   0   0   0\n",
       1,
       "talven-fcalc: ABC.HKL, line 1: expected rows of h, k and l, found none up to here\n"},
  };
  for (const auto& c : cases) {
    WriteFile("ABC.HKL", c.list);
    const Result result = Start(c.arguments);
    EXPECT_EQ(result.exit_code, c.exit_code) << c.text;
    EXPECT_TRUE(result.messages.starts_with(c.text)) << result.messages;
    EXPECT_EQ(ReadFile("ABC.fcf"), "of an earlier run\n");
  }
  WriteFile("ABC.HKL", kList);
  WriteFile("ABC.INS", Replaced(kModel, "C1 1", "REM"));
  EXPECT_EQ(Start({"ABC"}).messages, "talven-fcalc: ABC.INS, line 11: expected atom rows, found none up to here\n");
  WriteFile("ABC.INS", Replaced(kModel, "0.01", "-4.9 0 0 0 0 0"));
  WriteFile("ABC.HKL", "  30   0   0\n");
  EXPECT_EQ(Start({"ABC"}).messages, "talven-fcalc: ABC.INS: its displacements give an F squared beyond all numbers\n");
}

TEST(Fcalc, LeavesNoHalfFile) {
  const TestDirectory directory;
  WriteFile("ABC.INS", kModel);
  WriteFile("ABC.HKL", kList);
  if (!LimitFileSize(500)) GTEST_SKIP() << "no limit on this system";
  const Result result = Start({"ABC"});
  LimitFileSize(std::nullopt);
  EXPECT_EQ(result.exit_code, 1);
  EXPECT_TRUE(result.messages.starts_with("talven-fcalc: ABC.fcf.unfinished: cannot be ")) << result.messages;
  EXPECT_FALSE(Exists("ABC.fcf"));
  EXPECT_FALSE(Exists("ABC.fcf.unfinished"));
}

TEST(Fcalc, AnswersHelpAndVersion) {
  EXPECT_TRUE(Start({"--help"}).output.starts_with("usage: talven-fcalc JOB"));
  EXPECT_TRUE(Start({"--version"}).output.starts_with("talven-fcalc 1."));
  EXPECT_EQ(Start({"--version"}).exit_code, 0);
}

/// Both readers of FCF files find the rows after any title, and values that would not fit.
TEST(Fcalc, IsReadByBothReaders) {
  for (const std::string title :
       {"", "an 'o' in column 48 that is found only here: ooooooooooo", "seven texts 1 2 3 4 5 6 7 8",
        "oooooooooooooooooooooooooooooooooooooooo", "   1   0   0        1.00        1.00      0.01 o",
        "\t\xC3\xA9t\xC3\xA9\x01 1\t2\t3\t4\t5"}) {
    const TestDirectory directory;
    WriteFile("ABC.INS", Replaced(Replaced(kModel, "urea made up", title), "11 0.01", "21 0.01"));
    WriteFile("ABC.HKL", kList);
    const Result result = Start({"ABC"});
    EXPECT_TRUE(Count(result.messages, "divided") == 0 && result.exit_code == 0);
    EXPECT_EQ(RunSession({"ABC", "C:"}, "1006=6\nok\n1006=7\nok\n1014=5\n1030=40\nok\nexit\n").exit_code, 0);
    EXPECT_EQ(ReadFile("DUMMY.HKL"), "   1   0   0 257108.    507.\n   0   1   2 158733.    398.\n") << title;
    EXPECT_TRUE(ReadFile("SBRAG.LST")
                    .starts_with("    1   0   0     17.7225710790.00\n    0   1   2     29.5115873271.00\n   -1   0   "
                                 "0     17.7225710790.00\n"))
        << title;
  }
}

TEST(Fcalc, DividesWhatDoesNotFit) {
  const TestDirectory directory;
  WriteFile("ABC.INS", Replaced(Replaced(kModel, "1000", "100000"), "11 0.01", "21 0.01"));
  WriteFile("ABC.HKL", kList);
  const Result result = Start({"ABC"});
  EXPECT_EQ(Count(result.messages, "ABC.fcf: values are divided by 10^4\n"), 1) << result.messages;
  EXPECT_EQ(Count(ReadFile("ABC.fcf"), "\n# F squared divided by 10^4\n"), 1);
  EXPECT_EQ(Count(ReadFile("ABC.fcf"), "\n   1   0   0 25710789.02 25710789.02 257107.89 o\n"), 1)
      << ReadFile("ABC.fcf");
  EXPECT_EQ(RunSession({"ABC", "C:"}, "1006=7\nok\n1014=5\n1030=40\nok\nexit\n").exit_code, 0);
  EXPECT_TRUE(ReadFile("SBRAG.LST").starts_with("    1   0   0     17.7225")) << ReadFile("SBRAG.LST").substr(0, 80);
}

/// The whole way with the programs as they are built: the companion stands beside the program.
TEST(Fcalc, FillsItsPlaceInAnAutomaticRun) {
  const TestDirectory directory;
  WriteFile("abc.ins", kModel);
  const SessionResult result = RunProcess("ABC C:", "1006=5\nok\n1014=5\n1030=40\nok\n");
  EXPECT_EQ(result.exit_code, 0) << result.messages;
  EXPECT_EQ(Count(result.messages, "talven-fcalc ABC C: AUTO\n"), 1) << result.messages;
  EXPECT_EQ(Count(result.messages, "talven-fcalc: ABC.INS: 1 atom, 1 operator"), 1) << result.messages;
  EXPECT_EQ(result.Boxes(), "");
  EXPECT_EQ(CountLines(ReadFile("ABC.HKL")), CountLines(ReadFile("ABC.fcf")) - 17);
  EXPECT_TRUE(Exists("ABC.ING"));
}

}  // namespace
}  // namespace talven::test
