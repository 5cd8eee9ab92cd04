// The list of reflections behind a simulation, through the terminal program.
#include <gtest/gtest.h>

#include <sstream>

#include "support/Session.h"
#include "support/TestFiles.h"
#include "textio/Record.h"

namespace talven::test {
namespace {

const std::string kCubicIns = "TITL a\nCELL 0.71073 4 4 4 90 90 90\n";
const std::string kTwoRows =
    "   1   0   0  100.00    1.00\n   1   1   0   50.00    1.00\n   0   0   0    0.00    0.00\n";

using Row = std::array<std::string, 4>;
using Job = std::pair<std::string, std::string>;

struct SimulatePattern : testing::Test, TestDirectory {};

/// A session on a job of an INS file and reflections, which stand in its HKL and FCF files.
SessionResult Simulate(const std::string& ins, const std::string& rows, const std::string& answers) {
  WriteFile("ABC.Ins", ins);
  for (const char* name : {"abc.hkl", "Abc.FCF"}) WriteFile(name, rows);
  return RunSession({"abc", "C:"}, answers + "exit\n");
}

/// SBRAG.LST after a run as "1 0 2 5.00, ", without its angles and intensities of 10.
std::string Listed(const std::string& cell, const std::string& rows, const std::string& answers) {
  TestDirectory directory;
  Simulate("CELL 1 " + cell + "\n", rows, answers + "ok\n");
  std::istringstream stream(ReadFile("SBRAG.LST"));
  std::string text;
  for (std::string h, k, l, angle, f2; stream >> h >> k >> l >> angle >> f2;)
    text.append(h + " " + k + " " + l).append(f2 == "10.00" ? "" : " " + f2).append(", ");
  return text;
}

/// Rows of an HKL file for "1 0 2, ", of intensity 10.
std::string Hkl(const std::string& indices) {
  std::istringstream stream(Replaced(indices, ",", ""));
  std::string text;
  for (int h = 0, k = 0, l = 0; stream >> h >> k >> l;)
    text.append(Record().I(h, 4).I(k, 4).I(l, 4).Text()).append("   10.00    1.00\n");
  return text;
}

TEST_F(SimulatePattern, ReadsRowsUpToTheEndOfTheListAndExpandsThem) {
  const std::string row = "   1   0   2    5.00    1.00\n", narrow = "     1234.56     1240.11      3.02 o\n";
  const std::string octant = "7 9 11 90 90 90", half = "7 9 11 90 101 90", beta_120 = "7 8 9 90 120 90";
  for (const auto& [cell, rows, listed, answers] :
       {// equal to its sigma is not below it; the zeros end the list
        Row{octant,
            "   1   0   0    5.00    5.00\n# a comment\n   1   0   1    4.90    5.00 batch 3\n"
            "  -1   2   3  -20.00    1.00\n   1   1   1     123       1\n   2   0   0\n   0   0   0\n" +
                row,
            "1 0 0 5.00, 1 0 1 0.00, -1 2 3 0.00, 1 1 1 123.00, 2 0 0 0.00, ", "ok\n1024=off\n"},
        Row{octant, row + "   1   x   0    5.00    1.00\n" + row, "1 0 2 5.00, ", "ok\n1024=off\n"},
        Row{octant, row + "\n" + row, "1 0 2 5.00, ", "ok\n1024=off\n"},
        // a text in column 1, in 81 or behind a plus is not counted; eight words count seven times, and end the list
        Row{octant,
            "# head\ndata_x\nloop_\n _refln_index_h\n\n   1   0   2" + narrow + "-100   0   2" + narrow +
                "   1   0  +4" + narrow + "   1   0   3       1234.56        440.11         3.02 <\n   2   0   2" +
                Replaced(narrow, "\n", std::string(32, ' ') + "x\n") + "a b c d e f g h\n   3   0   2" + narrow,
            "1 0 2 1240.11, 1 0 3 440.11, 2 0 2 1240.11, ", "1006=7\nok\n1024=off\n"},
        // first h, zero indices twice, then k where it is not zero
        Row{octant, Hkl("1 2 3, 0 1 1, 1 0 1"),
            "1 2 3, 0 1 1, 1 0 1, -1 2 3, 0 1 1, -1 0 1, 1 -2 3, 0 -1 1, -1 -2 3, 0 -1 1, "},
        // signs add up to 5; to 4, one pass; beyond reach, but its signs count; h without a count copies nothing
        Row{octant, Hkl("1 1 1, -1 -1 1"), "1 1 1, -1 -1 1, "},
        Row{octant, Hkl("1 1 1, -1 1 1"), "1 1 1, -1 1 1, 1 -1 1, -1 -1 1, "},
        Row{octant, Hkl("1 1 1, -9 -9 99"), "1 1 1, "}, Row{octant, Hkl("0 1 2"), "0 1 2, 0 -1 2, "},
        Row{half, Hkl("1 1 1, 1 0 -1"), "1 1 1, 1 0 -1, 1 -1 1, 1 0 -1, "},
        Row{half, Hkl("1 1 1, 1 -1 1"), "1 1 1, 1 -1 1, "}, Row{half, Hkl("1 0 1"), "1 0 1, "},
        Row{"7 7.3 9 90 90 90", Hkl("1 1 1"), "1 1 1, -1 1 1, 1 -1 1, -1 -1 1, "},
        Row{"7 7 7 90 90 90", Hkl("1 1 1"), "1 1 1, -1 1 1, 1 -1 1, -1 -1 1, "},
        Row{"7 7.3 9 90 100 90", Hkl("1 1 1"), "1 1 1, "}, Row{"7 8 9 80 85 95", Hkl("1 1 1"), "1 1 1, "},
        Row{beta_120, Hkl("1 1 -1"), "1 1 -1, -1 1 -1, 1 -1 -1, -1 -1 -1, "},
        // a restart counts again, on top of the first attempt and what that left in the range
        Row{"4 4 4 90 90 90", Hkl("1 0 0"), "1 0 0, -1 0 0, ", "ok\n1014=0.001\n1015=on\n1016=50\nok\n1014=5\n"},
        // copies beyond the limit of the angle are taken back; those beyond reach count as at 143.6 degrees
        Row{beta_120, Hkl("1 1 -1"), "1 1 -1, 1 -1 -1, ", "ok\n1015=on\n1016=23\n"},
        Row{beta_120, Hkl("1 1 -10"), "1 1 -10, 1 -1 -10, ", "ok\n1015=on\n1016=143.5\n"}})
    EXPECT_EQ(Listed(cell, rows, answers.empty() ? "ok\n" : answers), listed) << cell << rows;
}

TEST_F(SimulatePattern, StopsAtTheLimitOfKeptRows) {
  std::string rows = Hkl("9 9 99");  // beyond reach, not kept
  for (int i = 0; i < 15'000; ++i) rows += "   1   0   1   10.00    1.00\n   1   1   1   10.00    1.00\n";
  const std::string written = "abc.ING (+CPI, XY, PAT) written\n";
  EXPECT_EQ(Simulate(kCubicIns, rows.substr(0, rows.size() - 29), "ok\n1024=off\nok\n").Boxes(), written);
  EXPECT_EQ(CountLines(ReadFile("SBRAG.LST")), 29'999);
  // Were the row behind read, its signs would leave nothing to expand.
  EXPECT_EQ(Simulate(kCubicIns, rows + Hkl("-9 -9 -9"), "ok\nok\n").Boxes(),
            "30,000 reflection limit\n30,000 reflection limit\n" + written);
  EXPECT_EQ(CountLines(ReadFile("SBRAG.LST")), 30'000);
}

TEST_F(SimulatePattern, RadiationAndAngleLimit) {
  for (const auto& [answers, told] :
       {Job{"1006=2\n", "   0.710690 2"}, Job{"1006=3\n", "   0.710730 2"}, Job{"1006=3\n1013=2\n", "   2.000000 2"},
        Job{"1016=30\n", "   1.540000 2"}, Job{"1015=on\n1016=30\n", "   1.540000 1"}}) {
    Simulate(kCubicIns, kTwoRows, "ok\n1024=off\n" + answers + "ok\n");
    EXPECT_EQ(LineOf(ReadFile("abc.ING"), 2) + " " + std::to_string(CountLines(ReadFile("SBRAG.LST"))), told);
  }
}

}  // namespace
}  // namespace talven::test
