// The options on pattern files: conversions, each by its own rules and one after the other, and the coarser ING.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <random>
#include <sstream>

#include "patterns/FineGrid.h"
#include "patterns/IngToAsc.h"
#include "patterns/WavelengthMove.h"
#include "support/Session.h"
#include "support/TestFiles.h"
#include "textio/Numbers.h"
#include "ui/console/ConsoleToolkit.h"

namespace talven::test {
namespace {

struct PatternFiles : testing::Test, TestDirectory {};

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

const std::string kIngHead =
    "    ABC\n       1.5406\n       4.0000\n       5.1000\n       0.5000\n       2.5000\n                2\n";

using Case = std::pair<std::string, std::string>;

TEST_F(PatternFiles, CifToIngTakesFiveNamesAndOneLoop) {
  const std::string first_row = "        4.000         10.\n";
  for (const Case& c :
       {Case{kCifHead + kLoop + "10 99\n\n20.6\n30\n", kIngHead + first_row + "        4.500         21.\n"},
        Case{kCifHead + "loop_\n   _pd_meas_counts_total\n10\n", kIngHead},
        Case{" " + kCifHead + kLoop + "10\n", "    ABC\n"}}) {
    WriteFile("ABC.CIF", c.first);
    EXPECT_EQ(RunOptions({"2"}).pane, "ABC.ING\n    NEW.ING written\n");
    EXPECT_EQ(ReadFile("ABC.ING"), c.second) << c.first;
  }
  WriteFile("ABC.CIF", "_pd_meas_step_count_time 7\n" + kCifHead + kLoop + "10\n20\n");
  RunOptions({"2", "2"});
  EXPECT_EQ(ReadFile("ABC.ING"), std::string(kIngHead).replace(kIngHead.find("2.5"), 3, "7.0"))
      << "the second run has all names after one line, and no loop behind that";
}

TEST_F(PatternFiles, NameWhatCannotBeRead) {
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

TEST_F(PatternFiles, NameTheLineWhereAnIngHeadIsCut) {
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

TEST_F(PatternFiles, EndTheRowsOfAnIngFileInTheirOwnWay) {
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

TEST_F(PatternFiles, IngToTxtWritesTwoRecordsWithinItsCapacity) {
  const std::string rows =
      "4 1234567.4\n4.25 999000.6\n4.5 998999.6\n4.75 -2.5\n5 -1E30\n5.25 1.49\n5.5 8 99\n1000,0\n6 7\n7 8\n";
  WriteFile("ABC.ING", Ing("4\n6.25\n.25", 3, rows));
  EXPECT_EQ(RunOptions({"8"}).pane, "\nABC.TXT Written\n");
  EXPECT_EQ(ReadFile("ABC.TXT"),
            "\"  4.000\",\"  4.250\",\"  4.500\",\"  4.750\",\"  5.000\",\"  5.250\",\"  5.500\",\"*******\",\n"
            "\"  6.000\" \n 999000, 999000, 999000,     -3,*******,      1,      8,      0,      7 \n");
}

TEST_F(PatternFiles, TxtToIngWritesTheHighestCountForTheStep) {
  WriteFile("ABC.TXT",
            "REM one\n4.00 1\nREM two\n4.05,2.6 tail\n4.10\t-3\nREMARK\n" + std::string(74, ' ') + "5 1234567");
  EXPECT_EQ(RunOptions({"9"}).pane, "ABC.TXT\n\nABC.ING written\n");
  EXPECT_EQ(ReadFile("ABC.ING"),
            "   ABC                 \n     1.5400\n          4.050\n          5.000\n       1234.000\n"
            "             4.\n            4\n     4.00           1.\n     4.05           3.\n     4.10          -3.\n"
            "     5.00        1234.\n");
  WriteFile("ABC.TXT", "REM a peak of height 1 gives the true step\n10 0\n11 1\n12 0\n13 0\n");
  RunOptions({"9", "8"});
  EXPECT_EQ(ReadFile("ABC.TXT"), "\" 10.000\",\" 11.000\",\" 12.000\" \n      0,      1,      0 \n");
}

TEST_F(PatternFiles, IngToAscScalesTheStrongestPointToTwo) {
  for (const Case& c :
       {Case{Ing("4\n40\n.05", 3, "4 50\n4.05 81\n4.1 -1\n"),
             "4000\n50\n719\n8\n10000\n50\n#DATA\n4000 1.234568\n4050 2.000000\n4100 -.024691\n"},
        Case{Ing(".05\n9.5\n.005", 3, ".05 4\n1000 4"), " 50\n10\n945\n8\n10000\n50\n#DATA\n 50 2.000000\n"},
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
    const std::string file = ReadFile("ABC.ASC");
    EXPECT_EQ(LineOf(file, 28) + file.substr(file.find("\n0.0\n") + 4), "0.00000011920928955078\n" + c.second);
  }
}

TEST_F(PatternFiles, RoundTripFromASimulationToCifAndBack) {
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

TEST_F(PatternFiles, BadInputEndsInAMessageOrAnErrorThatNamesTheLine) {
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

constexpr const char* kOther = "4\n1006=3\nok\n";
constexpr const char* kRange = "4\n4.1\n.02";
constexpr const char* kRows = "4.00 1000\n4.02 2000\n4.04 3000\n4.06 4000\n4.08 5000\n4.10 6000\n";

/// The counts of NEW.ING.
std::string NewCounts() {
  const std::string file = ReadFile("NEW.ING");
  std::string text;
  for (int line = 8; line <= CountLines(file); ++line) text += LineOf(file, line).substr(17);
  return text;
}

TEST_F(PatternFiles, ReformatIngWritesAPatternWorkedOutByHand) {
  WriteFile("ABC.ING", Ing(kRange, 6, kRows));
  EXPECT_EQ(RunOptions({kOther}).pane,
            "    Wavelength  =   1.5400\n    2 ThetaMin  =    4.000\n    2 ThetaMax  =    4.100\n"
            "    Step Size   =    0.020\n    Step Time   =      4.0\n   Calculating\n    NEW.ING written\n");
  // Cells of 0.01: 1000 2000 3000 3000 4000 4000 5000 5000 6000 6000. The first is on the edge of the first bin. The
  // stored 4.02 lies below the sum of stored 4 and 0.02, so that the third belongs to the first bin too, and so on.
  // Sums: 5000 7000 9000 11000 6000, one fiftieth of which is written.
  EXPECT_EQ(ReadFile("NEW.ING"),
            "   ABC                 \n     1.5400\n          4.020\n          4.100\n          0.020\n"
            "             4.\n            5\n     4.02         100.\n     4.04         140.\n     4.06         180.\n"
            "     4.08         220.\n     4.10         120.\n");
  // A last row with an angle and no count leaves cells 9 and 10 empty, since the filling finds nothing behind.
  WriteFile("ABC.ING", Ing(kRange, 6, std::string(kRows).replace(55, 4, "six")));
  RunOptions({kOther});
  EXPECT_EQ(NewCounts(), " 100. 140. 180. 100. 100.");
}

TEST_F(PatternFiles, ReformatIngStartsOnWhatTheLastRunLeft) {
  std::string cif = Replaced(Replaced(kCifHead, "5.1\n", "4.1\n"), "inc .5", "inc .02") + kLoop + "0\n0\n0\n0\n";
  WriteFile("ABC.ING", Ing(kRange, 6, kRows));
  WriteFile("ABC.CIF", cif);
  RunOptions({kOther, "2", kOther});
  // Zeros empty the cells 1, 2, 4 and 6; the others of the first run stay and fill them:
  // 1500 3000 3000 4000 4000 5000 5000 5000 6000 6000.
  EXPECT_EQ(NewCounts(), " 100. 133. 167. 183. 100.");
  RunOptions({kOther});
  EXPECT_EQ(NewCounts(), " 100. 100. 100. 100. 100.") << "a new process";

  WriteFile("ABC.ING", Ing(kRange, 6, kRows));
  WriteFile("ABC.CIF", cif.replace(cif.find(".02"), 3, ".0123"));
  EXPECT_EQ(RunOptions({kOther, "2", kOther}).Boxes(), "") << "the grid of the first run serves an odd step";
  EXPECT_EQ(RunOptions({"4"}).Boxes(), "Step Size is NOT a Multiple of 0.005\n");
  EXPECT_EQ(ReadFile("NEW.ING"), "");
}

TEST_F(PatternFiles, CapacityIsRefusedInAMessageBoxAndTheProgramGoesOn) {
  std::string many;
  for (int i = 0; i <= 100'000; ++i) many += "4 1\n";
  // Rows, a row that stands behind an unreadable one, cells, the cell of a row, bins; points of option 8.
  for (const auto& [ing, option] :
       {Case{Ing("4\n5\n.05", 100'001, many), kOther}, Case{Ing("4\n5\n.05", 2'000'000'000, "4 x\n"), kOther},
        Case{Ing("0\n1001\n.05", 1, "4 1\n"), kOther}, Case{Ing("4\n5\n.05", 1, "1005 1\n"), kOther},
        Case{Ing("4\n160\n.05", 1, "4 1\n"), "4\n1014=.001\n1006=3\nok\n"},
        Case{Ing("0\n30001\n1", 1, "4 1\n"), "8"}}) {
    WriteFile("ABC.ING", ing);
    WriteFile("NEW.ING", "");
    EXPECT_EQ(RunOptions({option, "3"}).Boxes(), option == "8" ? "30,000 point limit\n" : "100,000 point limit\n")
        << ing.substr(0, 40);
    EXPECT_EQ(ReadFile(option == "8" ? "ABC.TXT" : "NEW.ING"), "");
    EXPECT_TRUE(std::filesystem::remove("NEW.CIF"));
  }
}

TEST(WavelengthMove, FollowsBraggsLaw) {
  const WavelengthMove to_copper{0.71069F, 1.54F}, to_molybdenum{1.54F, 0.71069F};
  EXPECT_NEAR(to_copper.LimitAngle(), 26.10895, 1e-5);
  EXPECT_EQ(to_molybdenum.LimitAngle(), 170.0F);
  EXPECT_NEAR(to_molybdenum.Move(26.0), 23.34328, 1e-5);
  EXPECT_FALSE((WavelengthMove{1.54F, 1.5409F}).MovesAngles());
  IngHeader header{.FirstAngle = 20.0F, .LastAngle = 60.0F};
  to_copper.MoveRange(header);
  EXPECT_NEAR(header.FirstAngle, 44.20685, 1e-5);
  EXPECT_NEAR(header.LastAngle, 143.61026, 1e-4) << "sine 0.95";
}

TEST(FineGrid, ChoosesTheStepOfThePattern) {
  for (const auto& [step, fine] :
       {std::pair(0.29F, 0.01F), {0.57F, 0.01F}, {3e7F, 0.01F}, {0.025F, 0.005F}, {0.012F, 7.0F}, {0.01002F, 7.0F}}) {
    float FineStep = 7.0F;
    ChooseFineStep(step, FineStep);
    EXPECT_EQ(FineStep, fine) << step;
  }
}

TEST(FineGrid, FillsGapsWithADoublingIncrement) {
  const auto counts = std::make_unique<CellCounts>();
  for (const auto& [cell, count] : {std::pair(2, 8.0F), {7, 40.0F}, {12, -40.0F}, {14, 1.0F}, {216, 7.0F}})
    (*counts)[cell] = count;
  FillGaps(*counts, 300);
  // Cell 9 first becomes 0 and is then a gap of its own; from cell 15 there are 201 cells to the next one set.
  std::int32_t cell = 1;
  for (const int count : {8, 8, 16, 24, 40, 72, 40, 20, -40, -40, -120, -40, 1, 1, 0})
    EXPECT_EQ((*counts)[cell++], static_cast<float>(count));
}

/// The filling as it is told, without a bound to the search.
void FillGapsPlainly(CellCounts& counts, std::int32_t cell_count) {
  for (std::int32_t i = 1; i == 1 || i < cell_count; ++i) {
    if (counts[i] != 0.0F) continue;
    std::int32_t j = i + 1;
    while (j <= kLargestReformatCount && counts[j] == 0.0F) ++j;
    if (j > kLargestReformatCount || j - i > 200) return;
    const double p = counts[i - 1];
    double d = std::fabs(counts[j] - p) / (j - i);
    if (counts[j] < p) d = -d;
    for (std::int32_t m = 1; m <= j - i; ++m, d *= 2) counts[i - 1 + m] = Store(p + d);
  }
}

TEST(FineGrid, FillsAndBinsAsThePlainLoopsDo) {
  std::mt19937 random(4);
  const auto pick = [&random](int low, int high) { return std::uniform_int_distribution(low, high)(random); };
  // Kept from pattern to pattern, leftovers and all.
  static CellCounts counts, plain_counts;
  static ReformatArray angles, x, y;
  for (int pattern = 0; pattern < 60; ++pattern) {
    const std::int32_t cell_count = pick(0, 3000);
    const int widest = pick(0, 9) == 0 ? 260 : pick(1, 60);
    for (std::int32_t cell = 1; cell <= cell_count + 5; cell += pick(1, widest))
      counts[cell] = plain_counts[cell] = static_cast<float>(pick(0, 4) == 0 ? 0 : pick(-50, 90000)) / 7;
    const float fine_step = pick(0, 1) == 0 ? 0.01F : 0.005F;
    const float first = static_cast<float>(pick(1, 4000)) / 100;
    const double step = static_cast<float>(pick(1, 200)) / 1000;
    const std::int32_t bin_count = Truncate(cell_count * static_cast<double>(fine_step) / step) + 2;
    ASSERT_TRUE(BuildFineGrid(first, first + 31.0F, fine_step, angles));
    FillGaps(counts, cell_count);
    FillGapsPlainly(plain_counts, cell_count);
    BinCells(angles, counts, cell_count, first, step, bin_count, x, y);
    double low = first;
    for (std::int32_t bin = 1; bin <= bin_count; ++bin, low += step) {
      float sum = 0.0F;
      for (std::int32_t j = 1; j <= cell_count; ++j)
        if (angles[j] > low && angles[j] < low + step) sum = Store(sum + static_cast<double>(plain_counts[j]));
      ASSERT_TRUE(y[bin] == sum || (std::isnan(y[bin]) && std::isnan(sum))) << pattern << ", bin " << bin;
    }
  }
}

}  // namespace
}  // namespace talven::test
