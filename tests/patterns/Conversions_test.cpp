// The conversions of pattern files: their limits, and the ASCII spectrum.
#include <gtest/gtest.h>

#include <sstream>

#include "patterns/IngToAsc.h"
#include "support/Session.h"
#include "support/TestFiles.h"
#include "ui/console/ConsoleToolkit.h"

namespace talven::test {
namespace {

struct Conversions : testing::Test, TestDirectory {};

SessionResult RunJob(const std::string& answers) { return RunSession({"ABC", "C:"}, "1006=" + answers + "exit\n"); }

/// An ING file. Range is first and last angle and the step, in lines.
std::string Ing(const std::string& range, int count, const std::string& rows) {
  return "any title\n1.54\n" + range + "\n4.\n" + std::to_string(count) + "\n" + rows;
}

using Case = std::pair<std::string, std::string>;

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

TEST_F(Conversions, CapacityIsRefusedInAMessageBoxAndTheProgramGoesOn) {
  const std::string other = "4\nok\n1006=3\nok\n", to_text = "8\nok\n", from_text = "9\nok\n";
  std::string many;
  for (int i = 0; i <= 100'000; ++i) many += "4 1\n";
  // Rows, a row that stands behind an unreadable one, cells, the cell of a row, bins; points of option 8.
  for (const auto& [ing, option] :
       {Case{Ing("4\n5\n.05", 100'001, many), other}, Case{Ing("4\n5\n.05", 2'000'000'000, "4 x\n"), other},
        Case{Ing("0\n1001\n.05", 1, "4 1\n"), other}, Case{Ing("4\n5\n.05", 1, "1005 1\n"), other},
        Case{Ing("4\n160\n.05", 1, "4 1\n"), "4\nok\n1014=.001\n1006=3\nok\n"},
        Case{Ing("0\n30001\n1", 1, "4 1\n"), to_text}}) {
    WriteFile("ABC.ING", ing);
    WriteFile("NEW.ING", "");
    EXPECT_EQ(RunJob(option + "1006=3\nok\n").Boxes(),
              option == to_text ? "30,000 point limit\n" : "100,000 point limit\n")
        << ing.substr(0, 40);
    EXPECT_EQ(ReadFile(option == to_text ? "ABC.TXT" : "NEW.ING"), "");
    EXPECT_TRUE(std::filesystem::remove("NEW.CIF"));
  }
  // At the limit; of a text what lies beyond is not read.
  WriteFile("ABC.ING", Ing("0\n30000\n1", 1, many));
  EXPECT_EQ(RunJob(to_text).Boxes(), "");
  EXPECT_EQ(CountLines(ReadFile("ABC.TXT")), 3'750 + 3'000);
  WriteFile("ABC.TXT", many);
  RunJob(from_text);
  EXPECT_EQ(CountLines(ReadFile("ABC.ING")), 7 + 100'000);
}

}  // namespace
}  // namespace talven::test
