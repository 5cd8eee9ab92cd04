// Whole runs of the simulator through the terminal program.

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "simulation/SimulationOutputs.h"
#include "support/Session.h"
#include "support/TestFiles.h"

namespace talven::test {
namespace {

constexpr const char* kCubicIns = "TITL a\nCELL 0.71073 4 4 4 90 90 90\n";
constexpr const char* kTwoRows =
    "   1   0   0  100.00    1.00\n   1   1   0   50.00    1.00\n   0   0   0    0.00    0.00\n";
/// Four points, at 10, 15, 20 and 25 degrees, and nothing but the sticks and their tails.
constexpr const char* kFourPoints = "1014=5\n1030=10\n1018=off\n1024=off\nok\n";

SessionResult Simulate(const std::string& answers, const std::string& option = "") {
  return RunSession({"abc", "C:"}, option + "ok\n" + answers + "exit\n");
}

void WriteJob(const std::string& ins, const std::string& hkl) {
  WriteFile("abc.INS", ins);
  WriteFile("abc.HKL", hkl);
}

TEST(SimulatePattern, WritesAllFilesOfASmallPattern) {
  TestDirectory directory;
  WriteJob(kCubicIns, kTwoRows);
  const SessionResult result = Simulate(kFourPoints);
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_EQ(result.pane,
            "abc.INS\n"
            "   Reading\n"
            "  CELL\n"
            "   0.710730   4.0000   4.0000   4.0000  90.0000  90.0000  90.0000\n"
            "  Volume     64.000\n"
            "   CALCULATING\n"
            "   Reflections read            2\n"
            "   Total reflections           2\n"
            "   REMOVING DUPLICATES\n"
            "\n"
            "     abc\n"
            "   1.540000\n"
            "          3\n"
            "         32\n"
            "      5.000\n"
            "          1\n"
            "          4\n"
            "\n"
            "abc.ING (+CPI, XY, PAT) written\n");
  EXPECT_EQ(result.Boxes(), "abc.ING (+CPI, XY, PAT) written\n");
  EXPECT_EQ(ReadFile("abc.ING"),
            "abc (Talven)\n"
            "   1.540000\n"
            "     10.000\n"
            "     25.000\n"
            "      5.000\n"
            "  1000\n"
            "     4\n"
            "    10.00           2.\n"
            "    15.00          74.\n"
            "    20.00         100.     1   0   0\n"
            "    25.00          27.\n");
  EXPECT_EQ(ReadFile("abc.XY"),
            " REM Mirade/Talven Shelx HKL to powder XY\n"
            "     10.0000        2.00000    \n"
            "     15.0000        73.5759    \n"
            "     20.0000        100.000    \n"
            "     25.0000        27.0671    \n");
  EXPECT_EQ(ReadFile("SBRAG.LST"),
            "    1   0   0     22.20     100.00\n"
            "    1   1   0     31.59      50.00\n");
  EXPECT_EQ(ReadFile("abc.PAT"),
            " Mirade/Talven Shelx HKL to RIET7 DAT\n"
            "  \n  \n  \n"
            "  12.000   5.000  32.000\n");
  const std::string cpi = ReadFile("abc.CPI");
  EXPECT_EQ(Replaced(cpi, LineOf(cpi, 7), "DATE"),
            " SIETRONICS\n12.000\n32.000\n5.000\n Xx\n1.540000\nDATE\n 1\n abc from shelx HKL using Talven\n SCANDATA\n"
            "2\n74\n100\n27\n");
  EXPECT_FALSE(Exists("abc.TMP"));
}

TEST(SimulationOutputs, TheCpiHeadTellsTheMomentInFieldsOfTwo) {
  TestDirectory directory;
  const auto grid = std::make_unique<PatternGrid>();
  LineBuffer line;
  PatternFiles files;
  files.ing.Open("ing");
  files.cpi.Open("cpi");
  files.xy.Open("xy");
  files.pat.Open("pat");
  WriteHeads({"ab", 0.71069F, 0.02F, {2026, 1, 9}, {7, 45, 3}}, *grid, line, files);
  line = "";
  EXPECT_EQ(line.TrimLine(), 8) << "the length of the wavelength line stays behind";
  files.cpi.Close();
  EXPECT_EQ(ReadFile("cpi"),
            " SIETRONICS\n11.000\n0.000\n0.020\n Xx\n0.710690\n 9- 1-2026 at  7:45: 3\n 1\n"
            " ab from shelx HKL using Talven\n SCANDATA\n");
}

TEST(SimulatePattern, MissingInputsTouchNothing) {
  TestDirectory directory;
  WriteFile("abc.ING", "old");
  EXPECT_EQ(Simulate("").Boxes(), "INS File NOT Found\n");
  WriteFile("abc.INS", kCubicIns);
  EXPECT_EQ(Simulate("").Boxes(), "HKL File NOT Found\n");
  EXPECT_EQ(Simulate("", "1006=7\n").Boxes(), "FCF File NOT Found\n");
  EXPECT_EQ(ReadFile("abc.ING"), "old");
  EXPECT_FALSE(Exists("SBRAG.LST"));
}

TEST(SimulatePattern, RunsWithoutAPatternEndWithAMessage) {
  struct Case {
    const char* ins;
    const char* hkl;
    const char* answers;
    const char* box;
    bool goes_on;
  };
  for (const Case& c : {
           Case{"TITL a\ncell 1 4 4 4 90 90 90\n", kTwoRows, "", "NO CELL Line in INS File\n", false},
           {"", kTwoRows, "", "NO CELL Line in INS File\n", false},
           {kCubicIns, "", "ok\n", "NO Reflections in HKL File\n", false},
           {kCubicIns, "\x01\x02\xFF\n", "ok\n", "NO Reflections in HKL File\n", false},
           {kCubicIns, "   1 a 0     100.00    1.00\n", "ok\n", "NO Reflections in HKL File\n", false},
           {kCubicIns, kTwoRows, "1030=32\nok\n", "NO Points above 2Theta Min\n", true},
           {"CELL 1 0 4 4 90 90 90\n", kTwoRows, "ok\n", "NO Points above 2Theta Min\n", true},
           {"CELL 1 4 4 4 0 90 180\n", kTwoRows, "ok\n", "NO Points above 2Theta Min\n", true},
       }) {
    TestDirectory directory;
    WriteJob(c.ins, c.hkl);
    const SessionResult result = Simulate(c.answers);
    EXPECT_EQ(result.Boxes(), c.box) << c.ins << c.hkl;
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_FALSE(Exists("abc.TMP")) << "the scratch file goes in every case";
    EXPECT_EQ(ReadFile("abc.XY"), "");
    EXPECT_EQ(Count(result.messages, "[form 103]"), c.goes_on ? 2 : 1) << c.ins << c.hkl;
  }
}

TEST(SimulatePattern, AnUnreadableCellIsFatal) {
  struct Case {
    const char* cell;
    const char* error;
  };
  for (const Case& c : {Case{"CELL 0.71 4 4 4 90 90", "abc.INS, line 2: expected 7 numbers after CELL, found 6"},
                        {"CELL 0.71 4 4 x 90 90 90", "abc.INS, line 2: expected 7 numbers after CELL, found \"x\""},
                        {"CELL 0.71 4 nan 4 90 90 90", "abc.INS, line 2: expected 7 numbers after CELL, found \"nan\""},
                        {"CELLS 0.71 4 4 4 90 90 90", "abc.INS, line 2: expected 7 numbers after CELL, found \"S\""}}) {
    TestDirectory directory;
    WriteFile("abc.XY", "old");
    WriteJob(std::string("TITL\n") + c.cell + "\n", kTwoRows);
    const SessionResult result = Simulate("");
    EXPECT_EQ(result.exit_code, 1);
    EXPECT_TRUE(result.messages.ends_with(std::string("fatal I/O error: ") + c.error + "\n")) << result.messages;
    EXPECT_EQ(ReadFile("abc.XY"), "") << "the outputs have been emptied by then";
  }
}

TEST(SimulatePattern, ReadsWhateverOtherProgramsMakeOfLinesAndNames) {
  const std::string expected = "    1   0   0     22.20     100.00\n    1   1   0     31.59      50.00\n";
  const std::string ins = kCubicIns;
  const std::string hkl = kTwoRows;
  const std::string crlf_hkl = Replaced(hkl, "\n", "\r\n");
  const std::string long_line = "REM " + std::string(100'000, 'x') + "\n";
  for (const auto& [ins_text, hkl_text] : std::vector<std::pair<std::string, std::string>>{
           {ins, hkl},
           {"\xEF\xBB\xBF" + ins, "\xEF\xBB\xBF" + hkl},
           {Replaced(ins, "\n", "\r\n"), crlf_hkl},
           {ins.substr(0, ins.size() - 1), hkl.substr(0, hkl.size() - 1)},
           {ins + "\n\n", hkl + "\n\n\n"},
           {long_line + ins, "#" + long_line + hkl + long_line},
       }) {
    TestDirectory directory;
    WriteFile("ABC.Ins", ins_text);
    WriteFile("abc.hkl", hkl_text);
    EXPECT_EQ(Simulate(kFourPoints).exit_code, 0);
    EXPECT_EQ(ReadFile("SBRAG.LST"), expected) << ins_text.substr(0, 60);
  }
}

TEST(SimulatePattern, RadiationAndAngleLimit) {
  TestDirectory directory;
  WriteJob(kCubicIns, kTwoRows);
  struct Case {
    const char* answers;
    const char* wavelength;
    int rows;
  };
  for (const Case& c : {Case{"1013=2\nok\nexit\n", "   1.540000", 2},
                        {"1006=2\nok\n", "   0.710690", 2},
                        {"1006=3\nok\n", "   0.710730", 2},
                        {"1006=3\n1013=2\nok\n", "   2.000000", 2},
                        {"1016=30\nok\n", "   1.540000", 2},
                        {"1015=on\n1016=30\nok\n", "   1.540000", 1}}) {
    Simulate(std::string("1024=off\n") + c.answers);
    EXPECT_EQ(LineOf(ReadFile("abc.ING"), 2), c.wavelength) << c.answers;
    EXPECT_EQ(CountLines(ReadFile("SBRAG.LST")), c.rows) << c.answers;
  }
}

TEST(SimulatePattern, TooLargeAGridAsksAgainAndReadsAfresh) {
  TestDirectory directory;
  WriteJob(kCubicIns, kTwoRows);
  const SessionResult result = Simulate("1014=0.001\n1015=on\n1016=50\nok\n1014=5\n1030=10\n1018=off\nok\n");
  EXPECT_EQ(result.Boxes(), "Reduce 2THmax or increase step size\nabc.ING (+CPI, XY, PAT) written\n");
  EXPECT_EQ(CountLines(ReadFile("SBRAG.LST")), 2) << "counts 1 1 0 add up to 6 at the second attempt: no copies";
  EXPECT_EQ(LineOf(ReadFile("abc.ING"), 10), "    20.00         100.     1   0   0");
}

TEST(SimulatePattern, ASecondRunStartsAfresh) {
  TestDirectory directory;
  WriteJob(kCubicIns, kTwoRows);
  WriteFile("abc.FCF",
            "   1   0   0       77.00      400.00      1.00 o\n   1   1   0       77.00      400.00      1.00 o\n");
  const SessionResult both = RunSession(
      {"abc", "C:"}, "ok\nok\n1006=7\nok\n" + std::string(kFourPoints) + "1006=1\nok\n" + kFourPoints + "exit\n");
  EXPECT_EQ(both.exit_code, 0);
  EXPECT_EQ(LineOf(ReadFile("abc.ING"), 10), "    20.00         100.     1   0   0");
  EXPECT_EQ(CountLines(ReadFile("SBRAG.LST")), 2);
  RunSession({"abc", "C:"}, "ok\nok\n1006=7\nok\n" + std::string(kFourPoints) + "exit\n");
  EXPECT_EQ(LineOf(ReadFile("abc.ING"), 10), "    20.00         400.     1   0   0");
  EXPECT_EQ(CountLines(ReadFile("abc.ING")), 11);
}

TEST(SimulatePattern, ADiskThatFailsIsFatal) {
  for (const char* name : {"abc.ING", "abc.CPI", "abc.XY", "abc.PAT", "SBRAG.LST"}) {
    TestDirectory directory;
    WriteJob(kCubicIns, kTwoRows);
    std::filesystem::create_symlink("/dev/full", name);
    const SessionResult result = Simulate(kFourPoints);
    EXPECT_EQ(result.exit_code, 1) << name;
    EXPECT_TRUE(result.messages.ends_with("fatal I/O error: " + std::string(name) +
                                          ": cannot be written: No space left on device\n"))
        << result.messages;
  }
  TestDirectory directory;
  WriteJob(kCubicIns, kTwoRows);
  std::filesystem::create_directory("abc.CPI");
  EXPECT_TRUE(Simulate("").messages.ends_with("abc.CPI: cannot be opened for writing: Is a directory\n"));
}

}  // namespace
}  // namespace talven::test
