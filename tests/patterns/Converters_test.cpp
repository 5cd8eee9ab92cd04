// CIF, text table and ASCII spectrum: each converter's own rules, files that go through more than one option, and files
// that are none.
#include <gtest/gtest.h>

#include <random>
#include <sstream>

#include "PatternFiles.h"
#include "patterns/IngToAsc.h"
#include "ui/console/ConsoleToolkit.h"

namespace talven::test {
namespace {

const std::string kIngHead =
    "    ABC\n       1.5406\n       4.0000\n       5.1000\n       0.5000\n       2.5000\n                2\n";

struct Case {
  std::string input, result;
};

TEST(CifToIng, TakesFiveNamesAndOneLoop) {
  TestDirectory directory;
  const std::string first_row = "        4.000         10.\n";
  for (const Case& c :
       {Case{kCifHead + kLoop + "10 99\n\n20.6\n30\n", kIngHead + first_row + "        4.500         21.\n"},
        Case{kCifHead + "loop_\n   _pd_meas_counts_total\n10\n", kIngHead},
        Case{" " + kCifHead + kLoop + "10\n", "    ABC\n"}}) {
    WriteFile("ABC.CIF", c.input);
    EXPECT_EQ(RunOptions({"2"}).pane, "ABC.ING\n    NEW.ING written\n");
    EXPECT_EQ(ReadFile("ABC.ING"), c.result) << c.input;
  }
  WriteFile("ABC.CIF", "_pd_meas_step_count_time 7\n" + kCifHead + kLoop + "10\n20\n");
  RunOptions({"2", "2"});
  EXPECT_EQ(ReadFile("ABC.ING"), std::string(kIngHead).replace(kIngHead.find("2.5"), 3, "7.0"))
      << "the second run has all names after one line, and no loop behind that";
}

TEST(Converters, NameWhatCannotBeRead) {
  TestDirectory directory;
  const std::string not_xy = ": expected 2 numbers X and Y (or a remark with REM in columns 1 to 3), found ";
  for (const Case& c :
       {Case{"_pd_meas_2theta_range_minimum 5.0\n",
             "ABC.CIF, line 1: expected 1 number behind _pd_meas_2theta_range_min, found \"imum\"\n"},
        Case{"\n_pd_meas_step_count_time\n5\n",
             "ABC.CIF, line 2: expected 1 number behind _pd_meas_step_count_time, found 0\n"},
        Case{kCifHead, "ABC.CIF, line 6: expected loop_, found end of file\n"},
        Case{kCifHead + "loop_\n", "ABC.CIF, line 7: expected _pd_meas_counts_total, found end of file\n"},
        Case{kCifHead + kLoop + "10\nloop_\n", "ABC.CIF, line 9: expected a count, found \"loop_\"\n"},
        Case{"4 1\n", "ABC.TXT, line 2: expected X and Y of the second point, found end of file\n"},
        Case{"REM\n", "ABC.TXT, line 2: expected X and Y of the first point, found end of file\n"},
        Case{" REM\n4 1\n", "ABC.TXT, line 1" + not_xy + "\"REM\"\n"},
        Case{"4 1\n\n5 2\n", "ABC.TXT, line 2" + not_xy + "0\n"}}) {
    const std::string name = c.result.substr(0, 7);
    WriteFile(name, c.input);
    EXPECT_EQ(Fatal(RunOptions({name == "ABC.CIF" ? "2" : "9"})), c.result);
  }
}

TEST(Converters, NameTheLineWhereAnIngHeadIsCut) {
  TestDirectory directory;
  EXPECT_EQ(RunOptions({"4", "4"}).Boxes(), "ING File NOT Found\n");
  const std::string head = "\n1.54\n4.\n40.\n0.05\n1000.\n721\n";
  std::size_t end = 0;
  for (int line = 1; const char* what : {"a title", "a wavelength", "the first 2 theta", "the last 2 theta",
                                         "a step size", "a step time", "a number of points"}) {
    const std::string error = "ABC.ING, line " + std::to_string(line++) + ": expected " + what + ", found ";
    WriteFile("ABC.ING", head.substr(0, end));
    for (const char* option : {"3", "4", "8"}) EXPECT_EQ(Fatal(RunOptions({option})), error + "end of file\n");
    end = head.find('\n', end) + 1;
  }
}

TEST(Converters, EndTheRowsOfAnIngFileInTheirOwnWay) {
  TestDirectory directory;
  const std::string rows = ": expected a row of 2 theta and counts, found ";
  WriteFile("ABC.ING",
            "\xEF\xBB\xBFt\r\n1.54 A\r\n\r\n 4.,x\r\n\t6\r\n5E-1\r\n4\r\n3 rows\n4 10   1   0   2\n4.5,\n\n11 tail");
  EXPECT_EQ(RunOptions({"3"}).pane, "\n    NEW.CIF written\n");
  EXPECT_EQ(ReadFile("NEW.CIF"),
            "_diffraction_radiation_wavelength 1.5400\n_pd_meas_2theta_range_min         4.0000\n"
            "_pd_meas_2theta_range_max          6.0000\n_pd_meas_2theta_range_inc         0.5000\n"
            "_pd_meas_step_count_time          4.0000\nloop_\n    _pd_meas_counts_total\n"
            "                10.\n                11.\n");
  for (const char* option : {"4\nok\n", "8"})
    EXPECT_EQ(Fatal(RunOptions({option})), "ABC.ING, line 13" + rows + "end of file\n");
  WriteFile("ABC.ING", Ing("4\n6\nnan", 3, ""));
  EXPECT_EQ(Fatal(RunOptions({"4"})), "ABC.ING, line 5: expected a step size, found \"nan\"\n");
  WriteFile("ABC.ING", Ing("4\n6\n.5", 3, "4 10\n4.5 x1\n"));
  for (const char* option : {"3", "8"}) EXPECT_EQ(Fatal(RunOptions({option})), "ABC.ING, line 9" + rows + "\"x1\"\n");
}

TEST(IngToTxt, WritesTwoRecordsWithinItsCapacity) {
  TestDirectory directory;
  const std::string rows =
      "4 1234567.4\n4.25 999000.6\n4.5 998999.6\n4.75 -2.5\n5 -1E30\n5.25 1.49\n5.5 8 99\n1000,0\n6 7\n7 8\n";
  WriteFile("ABC.ING", Ing("4\n6.25\n.25", 3, rows));
  EXPECT_EQ(RunOptions({"8"}).pane, "\nABC.TXT Written\n");
  EXPECT_EQ(ReadFile("ABC.TXT"),
            "\"  4.000\",\"  4.250\",\"  4.500\",\"  4.750\",\"  5.000\",\"  5.250\",\"  5.500\",\"*******\",\n"
            "\"  6.000\" \n"
            " 999000, 999000, 999000,     -3,*******,      1,      8,      0,      7 \n");
}

TEST(TxtToIng, WritesTheHighestCountForTheStep) {
  TestDirectory directory;
  WriteFile("ABC.TXT",
            "REM one\n4.00 1\nREM two\n4.05,2.6 tail\n4.10\t-3\nREMARK\n" + std::string(74, ' ') + "5 1234567");
  EXPECT_EQ(RunOptions({"9"}).pane, "ABC.TXT\n\nABC.ING written\n");
  EXPECT_EQ(ReadFile("ABC.ING"),
            "   ABC                 \n     1.5400\n          4.050\n          5.000\n       1234.000\n"
            "             4.\n            4\n"
            "     4.00           1.\n     4.05           3.\n     4.10          -3.\n     5.00        1234.\n");
}

TEST(IngToAsc, ScalesTheStrongestPointToTwo) {
  TestDirectory directory;
  for (const Case& c :
       {Case{Ing("4\n40\n.05", 3, "4 50\n4.05 81\n4.1 -1\n"),
             "4000\n50\n719\n8\n10000\n50\n#DATA\n4000 1.234568\n4050 2.000000\n4100 -.024691\n"},
        Case{Ing(".05\n9.5\n.005", 3, ".05 4\n1000 4"), " 50\n10\n945\n8\n10000\n50\n#DATA\n 50 2.000000\n"},
        Case{Ing("1000\n1001\n.5", 3, "4 0\n4.5 -3\n"),
             "500\n 2\n8\n10000\n50\n#DATA\n4000 0.000000\n4500 0.000000\n"}}) {
    WriteFile("ABC.ING", c.input);
    std::istringstream input;
    std::ostringstream pane;
    ConsoleToolkit toolkit({"talven"}, input, pane, pane, false);
    Ui ui(toolkit);
    RunState run;
    run.JobName = "ABC";
    run.JobNameLength = 3;
    IngToAsc(ui, run);
    EXPECT_EQ(pane.str(), "\nABC.ASC written\n");
    const std::string file = ReadFile("ABC.ASC");
    EXPECT_EQ(LineOf(file, 28), "0.00000011920928955078");
    EXPECT_EQ(file.substr(file.find("\n0.0\n") + 5), c.result);
  }
}

TEST(RoundTrip, SimulationToCifAndBack) {
  TestDirectory directory;
  WriteFile("NEW.INS", "TITL salt\nCELL 0.71073 5.64 5.64 5.64 90 90 90\n");
  WriteFile("NEW.HKL", "   1   1   1   90.00    1.00\n   2   0   0  990.00    1.00\n   2   2   0  550.00    1.00\n");
  RunSession({"NEW", "C:"}, "1006=1\nok\nok\nexit\n");
  const std::string simulated = ReadFile("NEW.ING");
  // NEW.CIF is at once the output of option 3 and the input of option 2 for a job of that name.
  RunSession({"NEW", "C:"}, "1006=3\nok\n1006=2\nok\nexit\n");
  const std::string back = ReadFile("NEW.ING");
  ASSERT_GT(CountLines(back), 500);
  for (int line = 8; line <= CountLines(back); ++line) {
    EXPECT_NEAR(std::stof(LineOf(back, line)), std::stof(LineOf(simulated, line)), 0.0051) << line;
    EXPECT_EQ(std::stof(LineOf(back, line).substr(13)), std::stof(LineOf(simulated, line).substr(12, 10))) << line;
  }
}

TEST(RoundTrip, XyToIngToTxt) {
  TestDirectory directory;
  WriteFile("ABC.TXT", "REM a peak of height 1 gives the true step\n10 0\n11 1\n12 0\n13 0\n");
  RunOptions({"9", "8"});
  EXPECT_EQ(ReadFile("ABC.TXT"), "\" 10.000\",\" 11.000\",\" 12.000\" \n      0,      1,      0 \n");
}

/// A sound file with pieces of pattern files, put together at random, in its midst.
std::string Damaged(const std::string& file, std::mt19937& random) {
  constexpr const char* kPieces[] = {"\n", " ",   "-", ".", "1E38", "9999999999", "loop_",   "REM",
                                     "0",  "nan", ",", "/", "\x80", "\r\n",       "4.5 7\n", "\t"};
  std::string text = file.substr(0, random() % file.size());
  for (auto i = random() % 12; i > 0; --i) text += kPieces[random() % std::size(kPieces)];
  return random() % 2 == 0 ? text : text + file.substr(std::min(file.size(), text.size()));
}

TEST(BadInput, EndsInAMessageOrAnErrorThatNamesTheLine) {
  TestDirectory directory;
  std::mt19937 random(3);
  for (int i = 0; i < 50; ++i) {
    for (const char* option : {"3", "4\nok\n", "4\n1006=2\nok\n", "4\n1006=3\nok\n", "8", "9", "2"}) {
      WriteFile("ABC.ING", Damaged(Ing("4\n5\n.5", 3, "4 1\n4.5 2\n5 3\n"), random));
      WriteFile("ABC.CIF", Damaged(kCifHead + kLoop + "1\n2\n", random));
      WriteFile("ABC.TXT", Damaged("REM\n4 1\n4.5 2\n5 3\n", random));
      const SessionResult result = RunOptions({option});
      const bool names_line = Fatal(result).find(", line ") == 7;
      EXPECT_TRUE(result.exit_code == 0 || (result.exit_code == 1 && names_line)) << result.messages;
    }
  }
}

}  // namespace
}  // namespace talven::test
