#include <gtest/gtest.h>

#include <array>
#include <sstream>

#include "support/Session.h"
#include "support/TestFiles.h"

namespace talven::test {
namespace {

/// Stands in for the refinement: notes its arguments, the rows of the job's list and whatever should be gone by then,
/// and gives every reflection the same calculated F squared.
constexpr const char* kRefine = R"sh(
echo "$*: $(wc -l <"$1.HKL") rows $(ls | grep -i fcf)" >../refined
awk '{ printf "%s      400.00        1.00      1.00 o\n", substr($0, 1, 12) }' "$1.HKL" >"$1.fcf")sh";

constexpr const char* kModel =
    "CELL 0.7 2.9 2.9 2.9 90 90 90\nZERR 4 .1 .1 .1 0 0 0\nREM SG 9 4 C2/c\nSFAC C\nUNIT 4\n"
    "FVAR 1.0\nC1     1   0.1   0.2   0.3\nHKLF 4\n";

/// The forms that were shown, as "103 104 ".
std::string Forms(const SessionResult& result) {
  std::istringstream stream(result.messages);
  std::string forms;
  for (std::string line; std::getline(stream, line);)
    if (line.starts_with("[form ")) forms.append(line, 6, 3).append(" ");
  return forms;
}

/// Forms shown, what the refinement noted, and the program started on exit, each empty for none; and what became of the
/// INS: ' ' as it was, 'N' normalised, 'R' rewritten.
struct Mode {
  std::string markers, job;
  bool unattended;
  const char *forms, *refined, *started;
  char ins;
};

// Of the 64 reflections of the box a C lattice has 33.
TEST(AutomaticRun, IsMadeByJobAndMarkers) {
  for (const Mode& c :
       {Mode{"", "abc", false, "103 106 103 ", "", "mirade.exe ABC\n", ' '},
        Mode{"rem wmin\n REM WMIN\n", "VRAILS", false, "103 106 103 ", "", "mirade.exe VRAILS\n", ' '},
        Mode{"", "abc", true, "106 ", "", "", ' '},
        Mode{"", "vrail", false, "103 104 ", "VRAIL C: AUTO: 33 rows \n", "kestra.exe VRAIL C:\n", 'N'},
        Mode{"", "VRAIL", true, "", "VRAIL C: AUTO: 33 rows \n", "", 'N'},
        Mode{"REM WMIN\n", "abc", false, "103 104 ", "ABC C: AUTO: 33 rows \n", "kestra.exe ABC C:\n", 'R'},
        Mode{"REM WMINUS\nREM XWMIN\n", "abc", true, "", "ABC C: AUTO: 33 rows \n", "", 'R'},
        Mode{"REM XWMIN\n", "abc", false, "103 104 ", "ABC C: AUTO: 64 rows \n", "kestra.exe ABC C:\n", ' '},
        Mode{"REM XWMIN\nREM WMIN\n", "abc", true, "", "ABC C: AUTO: 64 rows \n", "", ' '},
        Mode{"REM XWMIN\n", "Vrail", true, "", "VRAIL C: AUTO: 33 rows \n", "", 'N'},
        Mode{"REM XWMIN\nREM WMIN\n", "VRAIL", true, "", "VRAIL C: AUTO: 33 rows \n", "", 'R'}}) {
    SCOPED_TRACE(c.markers + c.job + (c.unattended ? " MOLPAK" : ""));
    const TestDirectory directory;
    directory.WriteProgram("kvrl97.exe", kRefine);
    WriteFile(c.job + ".ins", c.markers + kModel);
    for (const char* old : {".Fcf", ".FCF", ".Hkl", ".hkl"}) WriteFile(c.job + old, "of an earlier run\n");
    WriteFile("TEST.INS", "of an earlier run\n");
    const SessionResult result =
        RunSession({c.job, "C:", c.unattended ? "MOLPAK" : ""}, c.unattended ? "" : "1006=5\nok\n");
    EXPECT_EQ(result.Boxes(), "");
    EXPECT_EQ(Forms(result), c.forms);
    EXPECT_EQ(*c.started != '\0' ? directory.Started() : "", c.started);
    EXPECT_EQ(Exists("../refined") ? ReadFile("../refined") : "", c.refined);
    const std::string ins = ReadFile(c.ins == ' ' ? c.job + ".ins" : c.job == "abc" ? "ABC.INS" : "VRAIL.INS");
    EXPECT_EQ(Count(ins, "LIST 4\nFMAP 2\nFVAR"), c.ins == ' ' ? 0 : 1);
    EXPECT_EQ(Count(ins, "C1     1    0.100    0.200    0.300 11.0 .05\n"), c.ins == 'R' ? 1 : 0);
    EXPECT_EQ(Exists("TEST.INS"), c.ins == ' ');
    const bool automatic = *c.refined != '\0';
    EXPECT_EQ(Count(ReadFile("DUMMY.HKL"), "  100.00    1.00 "), automatic ? 0 : 64);
    EXPECT_EQ(Count(result.pane, ".ING (+CPI, XY, PAT) written\n"), automatic ? 1 : 0);
    EXPECT_EQ(Count(result.pane, "DUMMY.HKL has been written\n"), automatic ? 0 : 1);
  }
}

TEST(AutomaticRun, GoesOnWhereTheRefinementGivesNothing) {
  const std::string no_fcf = "FCF File NOT Found\n";
  for (const auto& [job, commands, boxes, exit_code] :
       {std::tuple("ABC", "", no_fcf, 0),
        {"ABC", "kill -9 $$", no_fcf, 0},
        {"ABC", "printf '%4d%4d%4d%12.2f%24s\\n' 1 0 0 4 o >abc.Fcf; exit 1", "", 0},
        {"ABC", "echo '_list_code 6' >ABC.fcf", "", 1},
        {"DUMMY", "exit", no_fcf + "HKL File NOT Found\n", 0}}) {
    SCOPED_TRACE(commands);
    const TestDirectory directory;
    if (*commands != '\0') directory.WriteProgram("kvrl97.exe", commands);
    WriteFile(std::string(job) + ".INS", std::string("REM XWMIN\n") + kModel);
    WriteFile("abc.fcf", "   1   0   0      999.00        1.00      1.00 o\n");
    const SessionResult result = RunSession({job, "C", "MOLPAK"}, "");
    EXPECT_EQ(result.exit_code, exit_code) << result.messages;
    EXPECT_EQ(result.Boxes(), boxes);
    EXPECT_EQ(Count(result.messages, "[program] none found for C:\\exe\\kvrl97.exe ABC C: AUTO; looked at "),
              *commands == '\0' ? 1 : 0);
    EXPECT_EQ(Count(ReadFile("ABC.HKL"), "  100.00    1.00 "), boxes == no_fcf || exit_code == 1 ? 64 : 0);
    EXPECT_EQ(ReadFile("DUMMY.HKL") == ReadFile(std::string(job) + ".HKL"), exit_code == 0);
    // Of the dummy list four lie below 40 degrees; the one reflection of the FCF gets a copy at -h.
    const bool is_simulated = exit_code == 0 && Exists("DUMMY.HKL");
    EXPECT_EQ(CountLines(ReadFile("SBRAG.LST")), !is_simulated ? 0 : boxes == no_fcf ? 4 : 2);
    EXPECT_EQ(LineOf(ReadFile("ABC.XY"), 3), is_simulated ? "     4.05000        3203.59    " : "(no line 3)");
  }
}

TEST(AutomaticRun, StopsAtAnUnsuitableIns) {
  const std::string model = kModel;
  const auto forms_of = [](const std::string& ins) {
    WriteFile("VRAIL.INS", "LIST 6\n" + ins);
    return Forms(RunSession({"VRAIL", "C:"}, "1006=5\nok\n"));
  };
  const TestDirectory directory;
  const std::vector<std::array<const char*, 2>> cases = {
      {"REM SG 9 4 C2/c\n", ""}, {"SG 9", "SG  ORGN"}, {"C2/c\n", "C2/c\nREM SG 14\n"},
      {"ZERR", "zerr"},          {"UNIT", " UNIT"},    {"FVAR", "FVA"}};
  for (const auto& [part, by] : cases) {
    EXPECT_EQ(forms_of(Replaced(model, part, by)), "103 107 ") << by;
    EXPECT_EQ(LineOf(ReadFile("VRAIL.INS"), 1) + ReadFile("DUMMY.HKL"), "LIST 4") << "normalised all the same";
  }
  EXPECT_EQ(directory.Started(), "kestra.exe VRAIL C:\n");
  EXPECT_EQ(forms_of(Replaced(Replaced(model, "ZERR", "CELL"), "UNIT", "SFAC")), "103 104 ") << "pairs count alike";
}

}  // namespace
}  // namespace talven::test
