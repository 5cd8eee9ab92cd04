// The conversions of pattern files: what each makes of odd and of broken input, and one after the other.
#include <gtest/gtest.h>

#include <random>
#include <sstream>

#include "patterns/IngToAsc.h"
#include "support/Session.h"
#include "support/TestFiles.h"
#include "ui/console/ConsoleToolkit.h"

namespace talven::test {
namespace {

struct Conversions : testing::Test, TestDirectory {};

/// A session of job ABC that runs options in turn, each with its answers behind it: "4\n1006=3\nok\n".
SessionResult RunOptions(const std::vector<std::string>& options) {
  std::string answers;
  for (const std::string& option : options) answers += "1006=" + option.substr(0, 1) + "\nok" + option.substr(1) + "\n";
  return RunSession({"ABC", "C:"}, answers + "exit\n");
}

/// The text of the fatal error of a session, without its first words; empty if there was none.
std::string Fatal(const SessionResult& result) {
  const std::size_t at = result.messages.find("fatal I/O error: ");
  return at == std::string::npos ? "" : result.messages.substr(at + 17);
}

/// A CIF for two rows from 4 degrees on, less its counts.
const std::string kCifHead =
    "_diffraction_radiation_wavelength 1.5406\n_pd_meas_2theta_range_min 4\n_pd_meas_2theta_range_max 5.1\n"
    "_pd_meas_2theta_range_inc .5\n_pd_meas_step_count_time 2.5\n";
const std::string kLoop = "loop_\n    _pd_meas_counts_total\n";

/// An ING file. Range is first and last angle and the step, in lines.
std::string Ing(const std::string& range, int count, const std::string& rows) {
  return "any title\n1.54\n" + range + "\n4.\n" + std::to_string(count) + "\n" + rows;
}

using Case = std::pair<std::string, std::string>;

TEST_F(Conversions, NameWhatCannotBeRead) {
  const std::string not_xy = ": expected 2 numbers X and Y (or a remark with REM in columns 1 to 3), found ";
  for (const auto& [input, error] :
       {Case{"_pd_meas_2theta_range_minimum 5.0\n",
             "CIF, line 1: expected 1 number behind _pd_meas_2theta_range_min, found \"imum\""},
        {"\n_pd_meas_step_count_time\n5\n", "CIF, line 2: expected 1 number behind _pd_meas_step_count_time, found 0"},
        {kCifHead, "CIF, line 6: expected loop_, found end of file"},
        {kCifHead + "loop_\n", "CIF, line 7: expected _pd_meas_counts_total, found end of file"},
        {kCifHead + kLoop + "10\nloop_\n", "CIF, line 9: expected a count, found \"loop_\""},
        {"4 1\n", "TXT, line 2: expected X and Y of the second point, found end of file"},
        {"REM\n", "TXT, line 2: expected X and Y of the first point, found end of file"},
        {" REM\n4 1\n", "TXT, line 1" + not_xy + "\"REM\""},
        {"4 1\n\n5 2\n", "TXT, line 2" + not_xy + "0"}}) {
    WriteFile("ABC." + error.substr(0, 3), input);
    EXPECT_EQ(Fatal(RunOptions({error[0] == 'C' ? "2" : "9"})), "ABC." + error + "\n");
  }
}

TEST_F(Conversions, NameTheLineWhereAnIngHeadIsCut) {
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

TEST_F(Conversions, EndTheRowsOfAnIngFileInTheirOwnWay) {
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

TEST_F(Conversions, IngToAscScalesTheStrongestPointToTwo) {
  const std::string head =
      "PE IR                   SPECTRUM    ASCII\n  -1\n10746P~1.ASC\ntalven\n4.0\n30\n"
      "SPECTRUM ONE,CPU32 MAIN 00.02.3000\nINGAAS\nNIR\nCAF2\n55562\n1.000000\n8.000000\nSTRONG\nRATIO\nSPECTRUM\n"
      "MAGNITUDE\nREFLECTANCE\nDOUBLE\nCOMBINED\n0\n#HDR\n 1\n 1\n#GR\nnm\nA\n0.00000011920928955078\n0.0\n";
  for (const Case& c :
       {Case{Ing("4\n40\n.05", 3, "4 50\n4.05 81\n4.1 -1\n"),
             "4000\n50\n719\n8\n10000\n50\n#DATA\n4000 1.234568\n4050 2.000000\n4100 -.024691\n"},
        Case{Ing(".05\n9.5\n.005", 3, ".05 4\n1000 4"), " 50\n10\n945\n8\n10000\n50\n#DATA\n 50 2.000000\n"},
        // a step of four digits at most; signs have no column of their own; the scale is not stored
        Case{Ing("-5\n15\n10", 2, "-5 19\n5 26\n"), "***\n 2\n8\n10000\n50\n#DATA\n*** 1.461538\n5000 2.000000\n"},
        // a blank line in the head: the second pass begins a line too early
        Case{Ing("\n4\n5\n.5", 3, "4 10\n4.5 20\n"),
             "4000\n500\n 2\n8\n10000\n50\n#DATA\n3000 0.400000\n4500 2.000000\n"},
        Case{Ing("1000\n1001\n.5", 3, "4 0\n4.5 -3\n"),
             "500\n 2\n8\n10000\n50\n#DATA\n4000 0.000000\n4500 0.000000\n"}}) {
    WriteFile("ABC.ING", c.first);
    std::istringstream input;
    std::ostringstream pane;
    ConsoleToolkit toolkit({"talven"}, input, pane, pane, false);
    Ui ui(toolkit);
    RunState run;
    run.JobName = "ABC";
    run.JobNameLength = 3;
    IngToAsc(ui, run);
    EXPECT_EQ(pane.str(), "\nABC.ASC written\n");
    EXPECT_EQ(ReadFile("ABC.ASC"), head + c.second);
  }
}

TEST_F(Conversions, RoundTripFromASimulationToCifAndBack) {
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

/// A sound file with pieces of pattern files, put together at random, in its midst.
std::string Damaged(const std::string& file, std::mt19937& random) {
  constexpr const char* kPieces[] = {"\n", " ",   "-", ".", "1E38", "9999999999", "loop_",   "REM",
                                     "0",  "nan", ",", "/", "\x80", "\r\n",       "4.5 7\n", "\t"};
  std::string text = file.substr(0, random() % file.size());
  for (auto i = random() % 12; i > 0; --i) text += kPieces[random() % std::size(kPieces)];
  return random() % 2 == 0 ? text : text + file.substr(std::min(file.size(), text.size()));
}

TEST_F(Conversions, BadInputEndsInAMessageOrAnErrorThatNamesTheLine) {
  std::mt19937 random(3);
  for (int i = 0; i < 50; ++i) {
    for (const char* option : {"3", "4\nok\n", "4\n1006=2\nok\n", "4\n1006=3\nok\n", "8", "9", "2"}) {
      WriteFile("ABC.ING", Damaged(Ing("4\n5\n.5", 3, "4 1\n4.5 2\n5 3\n"), random));
      WriteFile("ABC.CIF", Damaged(kCifHead + kLoop + "1\n2\n", random));
      WriteFile("ABC.TXT", Damaged("REM\n4 1\n4.5 2\n5 3\n", random));
      const SessionResult result = RunOptions({option});
      EXPECT_EQ(result.exit_code, Fatal(result).find(", line ") == 7 ? 1 : 0) << result.messages;
    }
  }
}

TEST_F(Conversions, CapacityIsRefusedInAMessageBoxAndTheProgramGoesOn) {
  const std::string other = "4\n1006=3\nok\n";
  std::string many;
  for (int i = 0; i <= 100'000; ++i) many += "4 1\n";
  // Rows, a row that stands behind an unreadable one, cells, the cell of a row, bins; points of option 8.
  for (const auto& [ing, option] :
       {Case{Ing("4\n5\n.05", 100'001, many), other}, Case{Ing("4\n5\n.05", 2'000'000'000, "4 x\n"), other},
        Case{Ing("0\n1001\n.05", 1, "4 1\n"), other}, Case{Ing("4\n5\n.05", 1, "1005 1\n"), other},
        Case{Ing("4\n160\n.05", 1, "4 1\n"), "4\n1014=.001\n1006=3\nok\n"},
        Case{Ing("0\n30001\n1", 1, "4 1\n"), "8"}}) {
    WriteFile("ABC.ING", ing);
    WriteFile("NEW.ING", "");
    EXPECT_EQ(RunOptions({option, "3"}).Boxes(), option == "8" ? "30,000 point limit\n" : "100,000 point limit\n")
        << ing.substr(0, 40);
    EXPECT_EQ(ReadFile(option == "8" ? "ABC.TXT" : "NEW.ING"), "");
    EXPECT_TRUE(std::filesystem::remove("NEW.CIF"));
  }
  // At the limit; of a text what lies beyond is not read.
  WriteFile("ABC.ING", Ing("0\n30000\n1", 1, many));
  EXPECT_EQ(RunOptions({"8"}).Boxes(), "");
  EXPECT_EQ(CountLines(ReadFile("ABC.TXT")), 3'750 + 3'000);
  WriteFile("ABC.TXT", many);
  RunOptions({"9"});
  EXPECT_EQ(CountLines(ReadFile("ABC.ING")), 7 + 100'000);
}

}  // namespace
}  // namespace talven::test
