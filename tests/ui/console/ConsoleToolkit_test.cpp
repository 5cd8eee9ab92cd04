#include "ui/console/ConsoleToolkit.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/TestFiles.h"
#include "ui/forms/FormCatalogue.h"

namespace talven {
namespace {

/// One question of a toolkit, with the streams around it.
struct Terminal {
  explicit Terminal(const std::string& answers, bool is_interactive = false)
      : input(answers), toolkit({"talven"}, input, output, messages, is_interactive) {}

  std::istringstream input;
  std::ostringstream output;
  std::ostringstream messages;
  ConsoleToolkit toolkit;
};

/// Shows a form on the given answers and gives the text of the refusal, if any.
std::string RefusalOf(int form, const std::string& answers) {
  Terminal terminal(answers);
  terminal.toolkit.WDialogLoad(form);
  terminal.toolkit.WDialogFieldState(1016, 0);
  try {
    terminal.toolkit.WDialogShow(-1, -1, 0, kModal);
  } catch (const RefusedAnswer& refusal) {
    return refusal.what();
  }
  return "";
}

TEST(ConsoleToolkit, ShowsAForm) {
  Terminal terminal("ok\n");
  terminal.toolkit.WDialogLoad(kPatternForm);
  terminal.toolkit.WDialogFieldState(1016, 0);
  terminal.toolkit.WDialogShow(-1, -1, 0);
  EXPECT_EQ(terminal.messages.str(), "") << "a form without a mode prints nothing";
  terminal.toolkit.WDialogShow(-1, -1, 0, kModal);
  const std::string shown = terminal.messages.str();
  EXPECT_TRUE(shown.starts_with("[form 104]\n  1004 Powder Pattern Properties\n")) << shown;
  for (const char* line :
       {"\n  1006 Cu 1.54: 1 (1 to 3) chosen\n", "\n  1007 Mo .71069\n", "\n  1014 STEP Size: 0.050 (0.001 to 5)\n",
        "\n  1015 Set 2Theta Max. to: off\n", "\n  1016 2Theta Max.: 40.000 (0.001 to 360) (disabled)\n", "\n  1 OK\n"})
    EXPECT_NE(shown.find(line), std::string::npos) << line;
  EXPECT_EQ(terminal.output.str(), "");
}

TEST(ConsoleToolkit, FillsAForm) {
  Terminal terminal("# a comment\n\n1014=0.02\r\n 1015=on \n1006=3\n1013= 1.2\nok\n1014=9\n");
  Toolkit& toolkit = terminal.toolkit;
  toolkit.WDialogLoad(kPatternForm);
  toolkit.WDialogShow(-1, -1, 0, kModal);
  EXPECT_EQ(toolkit.WDialogGetReal(1014), 0.02F);
  EXPECT_EQ(toolkit.WDialogGetReal(1013), 1.2F);
  EXPECT_EQ(toolkit.WDialogGetCheckBox(1015), 1);
  EXPECT_EQ(toolkit.WDialogGetRadioButton(1006), 3);
  EXPECT_EQ(toolkit.WDialogQuery(kExitButtonQuery), kOkButton);
  EXPECT_EQ(toolkit.WDialogQuery(kCurrentDialogQuery), kPatternForm);
  toolkit.WDialogUnload(kPatternForm);
  EXPECT_EQ(toolkit.WDialogGetReal(1014), 0.0F) << "no form is current any more";
}

TEST(ConsoleToolkit, EndOfInputPressesExitWhereThereIsOne) {
  Terminal terminal("");
  terminal.toolkit.WDialogLoad(kOptionForm);
  terminal.toolkit.WDialogShow(-1, -1, 0, kModal);
  EXPECT_EQ(terminal.toolkit.WDialogQuery(kExitButtonQuery), kExitButton);
  terminal.toolkit.WDialogLoad(kPatternForm);
  terminal.toolkit.WDialogShow(-1, -1, 0, kModal);
  EXPECT_EQ(terminal.toolkit.WDialogQuery(kExitButtonQuery), kOkButton);
}

TEST(ConsoleToolkit, RefusalsTellLineAnswerAndWhatIsAccepted) {
  struct Case {
    const char* answers;
    const char* refusal;
  };
  for (const Case& c : {
           Case{"# c\n\n1014=5.5\n",
                "answer in line 3 of the input refused: 1014=5.5: expected a number from 0.001 to 5"},
           {"1014=0,05\n", "answer in line 1 of the input refused: 1014=0,05: expected a number from 0.001 to 5"},
           {"4711=1\n",
            "answer in line 1 of the input refused: 4711=1: the form has no such field: expected one of those "
            "shown"},
           {"1016=3\n", "answer in line 1 of the input refused: 1016=3: the field is disabled: expected another one"},
           {"1002=3\n",
            "answer in line 1 of the input refused: 1002=3: the field can't be filled: expected another one"},
           {"1015=yes\n", "answer in line 1 of the input refused: 1015=yes: expected on or off"},
           {"1006=4\n", "answer in line 1 of the input refused: 1006=4: expected the number of a button, 1 to 3"},
           {"1006= 0 3\n", "answer in line 1 of the input refused: 1006= 0 3: expected the number of a button, 1 to 3"},
           {"1006=\n", "answer in line 1 of the input refused: 1006=: expected the number of a button, 1 to 3"},
           {"1007=1\n",
            "answer in line 1 of the input refused: 1007=1: not the first button of its group: choose by "
            "the first one's id"},
           {"exit\n",
            "answer in line 1 of the input refused: exit: the form has no such button: expected ok or "
            "ID=VALUE"},
           {"hello\n", "answer in line 1 of the input refused: hello: expected ID=VALUE, ok or exit"},
       })
    EXPECT_EQ(RefusalOf(kPatternForm, c.answers), c.refusal);
}

TEST(ConsoleToolkit, APersonMayAnswerAgain) {
  Terminal terminal("1014=x\n1014=0.1\nok\n", true);
  terminal.toolkit.WDialogLoad(kPatternForm);
  terminal.toolkit.WDialogShow(-1, -1, 0, kModal);
  EXPECT_EQ(terminal.toolkit.WDialogGetReal(1014), 0.1F);
  EXPECT_TRUE(terminal.messages.str().ends_with("answer refused: 1014=x: expected a number from 0.001 to 5\n"));
}

TEST(ConsoleToolkit, MessageBoxes) {
  Terminal terminal("yes\nNo\nmaybe\n");
  Toolkit& toolkit = terminal.toolkit;
  toolkit.WMessageBox({.text = "one\rtwo"});
  EXPECT_EQ(terminal.messages.str(), "[message] one\n[message] two\n");
  EXPECT_EQ(toolkit.WDialogQuery(kOutcomeQuery), 1);
  const Message question{.type = MessageType::kYesNo, .text = "more?"};
  toolkit.WMessageBox(question);
  EXPECT_EQ(toolkit.WDialogQuery(kOutcomeQuery), 1);
  toolkit.WMessageBox(question);
  EXPECT_EQ(toolkit.WDialogQuery(kOutcomeQuery), 2);
  EXPECT_THROW(toolkit.WMessageBox(question), RefusedAnswer);
  toolkit.WMessageBox(question);
  EXPECT_EQ(toolkit.WDialogQuery(kOutcomeQuery), 2) << "no at the end of the input";
}

TEST(ConsoleToolkit, FileSelectorMovesTheDirectoryOnlyIfAsked) {
  test::TestDirectory directory;
  std::filesystem::create_directory("Sub");
  Terminal terminal("sub\nSub/x.LST\nnone/x.LST\n");
  std::string name = "job.HKL";
  terminal.toolkit.WSelectFile("f|*.*|", 0, name, "Title");
  EXPECT_EQ(name, (directory.Path() / "Sub/job.HKL").string()) << "a folder keeps the proposed name";
  EXPECT_EQ(std::filesystem::current_path(), directory.Path());
  terminal.toolkit.WSelectFile("f|*.*|", kKeepDirectory, name, "Title");
  EXPECT_EQ(name, (directory.Path() / "Sub/x.LST").string());
  EXPECT_EQ(std::filesystem::current_path(), directory.Path() / "Sub");
  EXPECT_THROW(terminal.toolkit.WSelectFile("f|*.*|", kKeepDirectory, name, "Title"), RefusedAnswer);
  terminal.toolkit.WSelectFile("f|*.*|", kKeepDirectory, name, "Title");
  EXPECT_EQ(terminal.toolkit.WDialogQuery(kOutcomeQuery), 0);
  EXPECT_EQ(std::filesystem::current_path(), directory.Path() / "Sub");
  EXPECT_TRUE(terminal.messages.str().starts_with("[file] Title\n"));
}

TEST(ConsoleToolkit, RunsAProgramAndWaits) {
  test::TestDirectory directory;
  directory.WriteProgram("work.exe", "printf '%s|' \"$@\" >args; exit 3");
  Terminal terminal("");
  EXPECT_EQ(terminal.toolkit.IOsCommand("C:\\EXE\\work.exe ABC C: AUTO", kWait), 3);
  EXPECT_EQ(test::ReadFile("args"), "ABC|C:|AUTO|");
  directory.WriteProgram("plain", "exit 0");
  EXPECT_EQ(terminal.toolkit.IOsCommand("C:\\exe\\plain.exe", kWait), 0) << "looked for without .exe too";
  EXPECT_FALSE(terminal.toolkit.IOsCommand("C:\\exe\\none.exe ABC", kWait));
  EXPECT_EQ(terminal.toolkit.IOsExecute("C:\\exe\\none.exe"), kExitRefused);
  EXPECT_EQ(terminal.messages.str(), "[message] Failed to execute program\n");
}

}  // namespace
}  // namespace talven
