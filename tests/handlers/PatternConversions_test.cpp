// Options 2 to 4, 8 and 9 as a session: their limits.
#include <gtest/gtest.h>

#include "support/Session.h"
#include "support/TestFiles.h"

namespace talven::test {
namespace {

struct Conversions : testing::Test, TestDirectory {};

SessionResult RunJob(const std::string& answers) { return RunSession({"ABC", "C:"}, "1006=" + answers + "exit\n"); }

/// An ING file. Range is first and last angle and the step, in lines.
std::string Ing(const std::string& range, int count, const std::string& rows) {
  return "any title\n1.54\n" + range + "\n4.\n" + std::to_string(count) + "\n" + rows;
}

using Case = std::pair<std::string, std::string>;

TEST_F(Conversions, CapacityIsRefusedInAMessageBoxAndTheProgramGoesOn) {
  const std::string other = "4\nok\n1006=3\nok\n", to_text = "8\nok\n", from_text = "9\nok\n";
  std::string many;
  for (int i = 0; i <= 100'000; ++i) many += "4 1\n";
  // Rows, a row that stands after an unreadable one, cells, the cell of a row, bins; points of option 8.
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

TEST_F(Conversions, AnInputOfAnotherKindIsToldInOneLineApartFromPaneAndBoxes) {
  WriteFile("ABC.INS", "CELL 1.54 5 5 5 90 90 90\nLATT 4\n");
  const std::string cif = "data_a\n_cell_length_a 5\n",
                    fcf = "data_a\n_shelx_refln_list_code 6\nloop_\n1 0 0 o 1 1 1\n";
  for (const auto& [file, text, option, hint] :
       {std::tuple{"ABC.CIF", cif, "2", "ABC.CIF: holds no powder pattern"},
        std::tuple{"ABC.TXT", std::string("X,Y here\n1 2\n"), "9", "ABC.TXT: line 1 is neither REM nor X and Y"},
        std::tuple{"ABC.FCF", fcf, "6", "ABC.fcf: holds LIST 6"},
        std::tuple{"ABC.FCF", fcf, "7", "ABC.FCF: holds LIST 6"}}) {
    WriteFile(file, text);
    const SessionResult result = RunJob(std::string(option) + "\nok\nok\n");
    EXPECT_NE(("\n" + result.messages).find(std::string("\n") + hint), std::string::npos) << result.messages;
    EXPECT_EQ((result.output + result.Boxes()).find(hint), std::string::npos);
  }
  WriteFile("ABC.TXT", "REM\n1 2\n2 3\n");
  EXPECT_EQ(RunJob("9\nok\n").messages.find("ABC.TXT:"), std::string::npos);
}

}  // namespace
}  // namespace talven::test
