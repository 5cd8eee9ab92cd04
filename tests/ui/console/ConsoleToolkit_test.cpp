#include "ui/console/ConsoleToolkit.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/TestFiles.h"
#include "textio/FileNames.h"
#include "ui/forms/FormCatalogue.h"

namespace talven {
namespace {

/// A toolkit with the streams around it.
struct Terminal {
  explicit Terminal(const std::string& answers, bool is_interactive = false)
      : input(answers), toolkit({"talven"}, input, output, messages, is_interactive) {}

  /// Shows a form, with its field 1016 disabled, and gives the button that ended it.
  int Show(int form) {
    toolkit.WDialogLoad(form);
    toolkit.WDialogFieldState(1016, 0);
    toolkit.WDialogShow(-1, -1, 0, kModal);
    return toolkit.WDialogQuery(kExitButtonQuery);
  }

  std::istringstream input;
  std::ostringstream output, messages;
  ConsoleToolkit toolkit;
};

TEST(ConsoleToolkit, ShowsAndFillsAForm) {
  Terminal terminal("# a comment\n\n1014=0.02\r\n 1015=on \n1006=3\n1013= 1.2\nok\n1014=9\n");
  EXPECT_EQ(terminal.Show(kPatternForm), kOkButton);
  const std::string shown = terminal.messages.str();
  EXPECT_TRUE(shown.starts_with("[form 104]\n  1004 Powder Pattern Properties\n")) << shown;
  for (const char* line :
       {"\n  1006 Cu 1.54: 1 (1 to 3) chosen\n", "\n  1007 Mo .71069\n", "\n  1014 STEP Size: 0.050 (0.001 to 5)\n",
        "\n  1015 Set 2Theta Max. to: off\n", "\n  1016 2Theta Max.: 40.000 (0.001 to 360) (disabled)\n", "\n  1 OK\n"})
    EXPECT_NE(shown.find(line), std::string::npos) << line;
  EXPECT_TRUE(terminal.toolkit.WDialogGetReal(1014) == 0.02F && terminal.toolkit.WDialogGetReal(1013) == 1.2F);
  EXPECT_TRUE(terminal.toolkit.WDialogGetCheckBox(1015) == 1 && terminal.toolkit.WDialogGetRadioButton(1006) == 3);
  terminal.toolkit.WDialogUnload(kPatternForm);
  EXPECT_EQ(terminal.toolkit.WDialogGetReal(1014), 0.0F) << "no form is current any more";
  EXPECT_EQ(Terminal("").Show(kOptionForm), kExitButton) << "at the end of the input";
  EXPECT_EQ(Terminal("").Show(kAbsenceForm), kOkButton) << "a form without exit";
}

TEST(ConsoleToolkit, RefusalsTellLineAnswerAndWhatIsAccepted) {
  const std::string button = "expected the number of a button, 1 to 3";
  using Row = std::pair<std::string, std::string>;
  for (const auto& [answer, reason] :
       {Row{"1014=5.5", "expected a number from 0.001 to 5"}, Row{"1014=0,05", "expected a number from 0.001 to 5"},
        Row{"4711=1", "the form has no such field: expected one of those shown"},
        Row{"1016=3", "the field is disabled: expected another one"},
        Row{"1002=3", "the field can't be filled: expected another one"}, Row{"1015=yes", "expected on or off"},
        Row{"1006=4", button}, Row{"1006=0", button}, Row{"1006= 0 3", button}, Row{"1006=", button},
        Row{"1007=1", "not the first button of its group: choose by the first one's id"},
        Row{"exit", "the form has no such button: expected ok or ID=VALUE"},
        Row{"hello", "expected ID=VALUE, ok or exit"}}) {
    EXPECT_EQ(test::ErrorOf([&text = answer] { Terminal("# c\n\n" + text + "\n").Show(kPatternForm); }),
              "answer in line 3 of the input refused: " + answer + ": " + reason);
    Terminal person(answer + "\n1014=0.1\nok\n", true);
    person.Show(kPatternForm);
    EXPECT_EQ(person.toolkit.WDialogGetReal(1014), 0.1F) << "a person may answer again";
    EXPECT_TRUE(person.messages.str().ends_with("\nanswer refused: " + answer + ": " + reason + "\n"));
  }
}

TEST(ConsoleToolkit, MessageBoxesAndFileSelector) {
  Terminal terminal("yes\nNo\n");
  const auto outcome = [&terminal](MessageType type) {
    terminal.toolkit.WMessageBox({.type = type, .text = "one\rtwo"});
    return terminal.toolkit.WDialogQuery(kOutcomeQuery);
  };
  EXPECT_EQ(outcome(MessageType::kOk), 1);
  EXPECT_EQ(terminal.messages.str(), "[message] one\n[message] two\n");
  for (const int answer : {1, 2, 2}) EXPECT_EQ(outcome(MessageType::kYesNo), answer);  // yes, no, the end of the input
  std::string name = "job.HKL";
  Terminal chooser("/x.LST\nnone/x.LST\n");
  chooser.toolkit.WSelectFile("f|*.*|", 0, name, "Title");
  const auto root = std::filesystem::canonical("/");
  EXPECT_TRUE(ToPath(name) == root / "x.LST" && std::filesystem::current_path() != root) << "moved only if asked";
  EXPECT_EQ(chooser.messages.str(), "[file] Title\n[folder] " + FromPath(std::filesystem::current_path()) + "\n");
  EXPECT_THROW(chooser.toolkit.WSelectFile("f|*.*|", 0, name, "Title"), RefusedAnswer);
  EXPECT_THROW(Terminal("maybe\n").toolkit.WMessageBox({.type = MessageType::kYesNo}), RefusedAnswer);
}

TEST(ConsoleToolkit, APersonMayTypeAJobNameAndAskForHelp) {
  Terminal person("?\n help\nmy job = 3\n", true);
  person.toolkit.WDialogLoad(kJobNameForm);
  person.toolkit.WDialogShow(-1, -1, 0, kModal);
  EXPECT_EQ(person.toolkit.WDialogGetString(1005), "my job = 3");
  const std::string help =
      "[help] ID=VALUE fills a field, as 1005=UREA; the value alone does so too, and presses ok\n[help] ok goes on\n";
  EXPECT_TRUE(person.messages.str().ends_with(help + help)) << person.messages.str();
  EXPECT_THROW(Terminal("my job\n").Show(kJobNameForm), RefusedAnswer) << "in a script it may be a mistake";
  EXPECT_THROW(Terminal("help\n").Show(kJobNameForm), RefusedAnswer);
  Terminal pattern("help\n0.5\nok\n", true);
  EXPECT_EQ(pattern.Show(kPatternForm), kOkButton);
  EXPECT_TRUE(pattern.messages.str().ends_with(
      "[help] ID=VALUE fills a field, as 1013=0.710690\n[help] ID=on or ID=off sets a check box, as 1015=on\n"
      "[help] ID=N chooses the Nth button of the group that begins there, as 1006=2\n[help] ok goes on\n"
      "answer refused: 0.5: expected ID=VALUE, ok or exit\n"));
  Terminal box("help\nyes\n?\n/\n", true);
  box.toolkit.WMessageBox({.type = MessageType::kYesNo});
  EXPECT_TRUE(box.messages.str().ends_with("[help] expected Yes or No, in upper or lower case\n"));
  std::string name = "job.HKL";
  box.toolkit.WSelectFile("", 0, name, "Title");
  EXPECT_EQ(ToPath(name).filename(), "job.HKL");
  EXPECT_NE(box.messages.str().find("[help] the path of a file, as job.HKL\n"), std::string::npos);
}

TEST(ConsoleToolkit, RunsAProgramAndWaits) {
  test::TestDirectory directory;
  directory.WriteProgram("work.exe", "printf '%s|' \"$@\" >args; exit 3");
  directory.WriteProgram("plain", "exit 4");
  Terminal terminal("");
  EXPECT_EQ(terminal.toolkit.IOsCommand("C:\\EXE\\work.exe ABC C: AUTO", kWait), 3);
  EXPECT_EQ(test::ReadFile("args"), "ABC|C:|AUTO|");
  EXPECT_EQ(terminal.toolkit.IOsCommand("C:\\exe\\plain.exe", kWait), 4) << "looked for without .exe too";
  EXPECT_FALSE(terminal.toolkit.IOsCommand("C:\\exe\\none.exe ABC", kWait));
}

}  // namespace
}  // namespace talven
