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

using Job = std::pair<std::string, std::string>;

struct SimulatePattern : testing::Test, TestDirectory {};

/// A session on a job of an INS file and reflections, which stand in its HKL and FCF files.
SessionResult Simulate(const std::string& ins, const std::string& rows, const std::string& answers) {
  WriteFile("ABC.Ins", ins);
  for (const char* name : {"abc.hkl", "Abc.FCF"}) WriteFile(name, rows);
  return RunSession({"abc", "C:"}, answers + "exit\n");
}

/// Rows of an HKL file for "1 0 2, ", of intensity 10.
std::string Hkl(const std::string& indices) {
  std::istringstream stream(Replaced(indices, ",", ""));
  std::string text;
  for (int h = 0, k = 0, l = 0; stream >> h >> k >> l;)
    text.append(Record().I(h, 4).I(k, 4).I(l, 4).Text()).append("   10.00    1.00\n");
  return text;
}

TEST_F(SimulatePattern, ARestartCountsSignsAgain) {
  // On top of the first attempt and what that left in the range; so there is one copy less.
  Simulate("CELL 1 4 4 4 90 90 90\n", Hkl("1 0 0"), "ok\nok\n1014=0.001\n1015=on\n1016=50\nok\n1014=5\nok\n");
  EXPECT_EQ(ReadFile("SBRAG.LST"), "    1   0   0     22.20      10.00\n   -1   0   0     22.20      10.00\n");
}

TEST_F(SimulatePattern, StopsAtTheLimitOfKeptRows) {
  std::string rows = Hkl("9 9 99");  // beyond reach, not kept
  for (int i = 0; i < 15'000; ++i) rows += "   1   0   1   10.00    1.00\n   1   1   1   10.00    1.00\n";
  const std::string written = "abc.ING (+CPI, XY, PAT) written\n";
  EXPECT_EQ(Simulate(kCubicIns, rows.substr(0, rows.size() - 29), "ok\n1024=off\nok\n").Boxes(), written);
  EXPECT_EQ(CountLines(ReadFile("SBRAG.LST")), 29'999);
  // Were the next row read, its signs would leave nothing to expand.
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
