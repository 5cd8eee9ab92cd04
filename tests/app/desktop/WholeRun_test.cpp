// Whole runs of the desktop program, driven by keys and clicks.

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <array>
#include <clocale>
#include <cstdlib>
#include <filesystem>

#include "app/desktop/DesktopProgram.h"
#include "support/Session.h"
#include "support/TestFiles.h"
#include "support/qt/UserScript.h"
#include "ui/qt/MainWindow.h"

namespace talven::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* kProgramPath = "/usr/bin/talven";
constexpr std::array kResults = {"SALT.ING", "SALT.CPI", "SALT.XY", "SALT.PAT", "SBRAG.LST"};

/// Rock salt with a few reflections.
void WriteJob() {
  WriteFile("SALT.INS", "TITL NaCl\nCELL 0.71073 5.6402 5.6402 5.6402 90 90 90\nLATT 4\n");
  WriteFile("SALT.HKL",
            "   1   1   1   25.00    1.00\n   2   0   0  900.00    9.00\n   2   2   0  700.00    7.00\n"
            "   3   1   1   20.00    1.00\n   2   2   2  300.00    3.00\n   0   0   0    0.00    0.00\n");
}

/// The job's files but for the lines that hold the time of the run.
std::string Results() {
  std::string all;
  for (const char* name : kResults) {
    std::string text = ReadFile(name);
    if (name == std::string("SALT.CPI")) {
      const std::string line = LineOf(text, 7);
      text.replace(text.find(line), line.size(), "TIME");
    }
    all += name + ("\n" + text);
  }
  return all;
}

MainWindow& Window() {
  for (QWidget* const widget : QApplication::topLevelWidgets())
    if (auto* const window = qobject_cast<MainWindow*>(widget)) return *window;
  throw std::runtime_error("no main window");
}

TEST(DesktopProgram, SimulatesAsTheTerminalProgramDoes) {
  TestDirectory directory;
  WriteJob();
  ASSERT_EQ(RunSession({"SALT", "C:"}, "1006=1\nok\n1006=2\n1014=0.02\nok\nexit\n").exit_code, 0);
  const std::string expected = Results();
  for (const char* name : kResults) fs::remove(name);
  fs::current_path("..");

  UserScript user;
  user.Then([](QDialog& form) {
        TypeInto(form, 1005, "SALT");
        QTest::keyClick(&Edit(form, 1005), Qt::Key_Return);
      })
      .Then([](QDialog& selector) {
        EXPECT_EQ(selector.windowTitle(), "Find the Directory -          The file name does not matter");
        AcceptName(selector, "work");
        AcceptName(selector, "SALT.HKL");
      })
      .ThenPress(Qt::Key_Return)
      .Then([](QDialog& form) {
        ClickField(form, 1007);
        TypeInto(form, 1014, "0.02");
        ClickField(form, 1);
      })
      .Then([](QDialog& box) {
        SavePicture(Window(), "window");
        QTest::keyClick(&box, Qt::Key_Return);
      })
      .ThenPress(Qt::Key_Escape);
  EXPECT_EQ(RunDesktop({kProgramPath}), 0);
  EXPECT_TRUE(user.IsDone());
  EXPECT_EQ(Results(), expected);
  EXPECT_EQ(QLocale::system().decimalPoint(), ",") << "the user's language has commas";
  EXPECT_STREQ(std::localeconv()->decimal_point, ".") << "and numbers have points";
  EXPECT_EQ(ReadFile(directory.Drive() / "exe/VELDOR/DIR.DEF"),
            directory.Path().string() + std::string(80 - directory.Path().string().size(), ' ') + "\n");
}

TEST(DesktopProgram, ClosingTheWindowLeavesAsExitDoes) {
  TestDirectory directory;
  UserScript user;
  user.Then([](QDialog&) { Window().close(); });
  EXPECT_EQ(RunDesktop({kProgramPath, "SALT", "C:"}), 0);
  EXPECT_TRUE(QTest::qWaitFor([] { return ReadFile("../started") == "mirade.exe SALT\n"; }));
}

TEST(DesktopProgram, AFatalErrorIsTold) {
  TestDirectory directory;
  WriteJob();
  WriteFile("SALT.INS", "CELL 0.71073 5.6402 x 5.6402 90 90 90\n");
  UserScript user;
  user.ThenPress(Qt::Key_Return).Then([](QDialog& box) {
    EXPECT_TRUE(dynamic_cast<QMessageBox&>(box).text().startsWith("SALT.INS, line 1: "));
    QTest::keyClick(&box, Qt::Key_Return);
  });
  EXPECT_EQ(RunDesktop({kProgramPath, "SALT", "C:"}), 1);
  EXPECT_TRUE(user.IsDone());
}

TEST(DesktopProgram, SaysThatThereIsNoDisplay) {
  TestDirectory directory;
  const std::string command = std::string("env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM '") + TALVEN_DESKTOP;
  const int status = std::system((command + "' >output 2>messages").c_str());
  EXPECT_EQ(WEXITSTATUS(status), 2);
  EXPECT_EQ(CountLines(ReadFile("messages")), 1);
  EXPECT_NE(ReadFile("messages").find("talven-console"), std::string::npos) << ReadFile("messages");
}

}  // namespace
}  // namespace talven::test
