// Whole runs of the desktop program, driven by keys and clicks.

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QTest>
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

constexpr int kOk = 1;
constexpr const char* kProgramPath = "/usr/bin/talven";

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
  for (const char* name : {"SALT.ING", "SALT.CPI", "SALT.XY", "SALT.PAT", "SBRAG.LST"}) {
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

/// Accepts the proposed name in a folder.
void ChooseFolder(QDialog& dialog, const fs::path& folder) {
  auto& selector = dynamic_cast<QFileDialog&>(dialog);
  EXPECT_EQ(selector.windowTitle(), "Find the Directory -          The file name does not matter");
  selector.setDirectory(QString::fromStdString(folder.string()));
  QTest::keyClick(selector.findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
}

TEST(DesktopProgram, SimulatesAsTheTerminalProgramDoes) {
  TestDirectory directory;
  WriteJob();
  ASSERT_EQ(RunSession({"SALT", "C:"}, "1006=1\nok\n1006=2\n1014=0.02\nok\nexit\n").exit_code, 0);
  const std::string expected = Results();
  for (const char* name : {"SALT.ING", "SALT.CPI", "SALT.XY", "SALT.PAT", "SBRAG.LST"}) fs::remove(name);
  fs::current_path("..");

  UserScript user;
  user.Then([](QDialog& form) {
        TypeInto(form, 1005, "SALT");
        QTest::keyClick(&Edit(form, 1005), Qt::Key_Return);
      })
      .Then([&](QDialog& selector) { ChooseFolder(selector, directory.Path()); })
      .ThenClick(kOk)
      .Then([](QDialog& form) {
        ClickField(form, 1007);
        TypeInto(form, 1014, "0.02");
        ClickField(form, kOk);
      })
      .Then([](QDialog& box) {
        SavePicture(Window(), "window");
        QTest::keyClick(&box, Qt::Key_Return);
      })
      .Then([](QDialog& form) { QTest::keyClick(&form, Qt::Key_Escape); });
  EXPECT_EQ(RunDesktop({kProgramPath}), 0);
  EXPECT_TRUE(user.IsDone());
  EXPECT_EQ(Results(), expected);
  EXPECT_EQ(ReadFile(directory.Drive() / "exe/VELDOR/DIR.DEF"),
            directory.Path().string() + std::string(80 - directory.Path().string().size(), ' ') + "\n");
}

TEST(DesktopProgram, NumbersKeepTheirPointUnderALocaleWithCommas) {
  const std::string current = std::setlocale(LC_NUMERIC, nullptr);
  if (std::setlocale(LC_NUMERIC, "de_DE.UTF-8") == nullptr) GTEST_SKIP() << "no locale with decimal commas here";
  std::setlocale(LC_NUMERIC, current.c_str());
  EXPECT_STREQ(std::localeconv()->decimal_point, ".") << "after the start of the session in the test's main";
  EXPECT_EQ(QLocale::system().decimalPoint(), ",");
}

TEST(DesktopProgram, ClosingTheWindowLeavesAsExitDoes) {
  TestDirectory directory;
  UserScript user;
  user.Then([](QDialog&) { Window().close(); });
  EXPECT_EQ(RunDesktop({kProgramPath, "SALT", "C:"}), 0);
  for (int i = 0; i < 200 && !Exists("../started"); ++i) QTest::qWait(10);
  QTest::qWait(50);
  EXPECT_EQ(ReadFile("../started"), "mirade.exe SALT\n");
}

TEST(DesktopProgram, AFatalErrorIsTold) {
  TestDirectory directory;
  WriteJob();
  WriteFile("SALT.INS", "CELL 0.71073 5.6402 x 5.6402 90 90 90\n");
  QString text;
  UserScript user;
  user.ThenClick(kOk).Then([&](QDialog& box) {
    text = dynamic_cast<QMessageBox&>(box).text();
    QTest::keyClick(&box, Qt::Key_Return);
  });
  EXPECT_EQ(RunDesktop({kProgramPath, "SALT", "C:"}), 1);
  EXPECT_TRUE(text.startsWith("SALT.INS, line 1: ")) << text.toStdString();
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
