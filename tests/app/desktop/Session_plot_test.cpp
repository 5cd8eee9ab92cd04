// From a job to a score in the main window: the pattern comes up in the plot, its peaks are picked, saved and compared.

#include <QAbstractItemModel>
#include <QAccessible>
#include <QApplication>
#include <QTableView>

#include "app/desktop/DesktopProgram.h"
#include "support/Session.h"
#include "support/TestFiles.h"
#include "support/qt/UserScript.h"
#include "ui/qt/MainWindow.h"

namespace talven::test {
namespace {

constexpr const char* kPath = "/usr/bin/talven";
constexpr const char* kPeaks = "SALT.peaks.LST";
constexpr const char* kLog = "Talven_corvane.log";

MainWindow& Window() {
  for (QWidget* const widget : QApplication::topLevelWidgets())
    if (auto* const window = qobject_cast<MainWindow*>(widget)) return *window;
  throw std::runtime_error("no main window");
}

QWidget& Canvas() { return *Window().findChild<QWidget*>("plot"); }

bool IsShown(const char* text) { return Canvas().accessibleDescription().contains(text); }

/// On a small screen it is a tab.
void BringPlotToFront() { QTest::keyClick(&Window(), Qt::Key_3, Qt::AltModifier); }

int ListedPeaks() { return Window().Plot().findChild<QTableView*>()->model()->rowCount(); }

/// Opens a dialog by keys once this step has returned: the dialog keeps its own loop.
void PressLater(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QTimer::singleShot(0, &Canvas(), [=] {
    QTest::keyClick(&Canvas(), key, modifiers);
    // As a window manager does when the dialog is gone.
    Window().activateWindow();
  });
}

/// Job SALT, rock salt with a few reflections.
struct SaltJob : TestDirectory {
  SaltJob() {
    WriteFile("SALT.INS", "TITL NaCl\nCELL 0.71073 5.6402 5.6402 5.6402 90 90 90\nLATT 4\n");
    WriteFile("SALT.HKL",
              "   1   1   1   25.00    1.00\n   2   0   0  900.00    9.00\n   2   2   0  700.00    7.00\n"
              "   3   1   1   20.00    1.00\n   2   2   2  300.00    3.00\n   0   0   0    0.00    0.00\n");
  }
};

void ExpectNames() {
  for (QWidget* const widget : Window().findChildren<QWidget*>()) {
    if (!widget->isVisible() || (widget->focusPolicy() & Qt::TabFocus) == 0) continue;
    EXPECT_FALSE(QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name).isEmpty())
        << widget->metaObject()->className() << ' ' << widget->objectName().toStdString();
  }
}

void PickPeaks(QDialog&) {
  EXPECT_TRUE(IsShown("SALT")) << Canvas().accessibleDescription().toStdString();
  BringPlotToFront();
  Canvas().setFocus();
  QTest::keyClick(&Canvas(), Qt::Key_P, Qt::ControlModifier);
  const int found = ListedPeaks();
  EXPECT_GE(found, 3);
  ExpectNames();
  QTest::keyClick(&Canvas(), Qt::Key_PageDown);
  QTest::keyClick(&Canvas(), Qt::Key_Delete);
  EXPECT_EQ(ListedPeaks(), found - 1);
  QTest::keyClick(&Canvas(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(ListedPeaks(), found);
  PressLater(Qt::Key_S, Qt::ControlModifier);
}

TEST(PlotSession, ComesFromAJobToAScoreWithTheLogOfTheTerminal) {
  const SaltJob job;
  const auto set_up_pattern = [](QDialog& form) {
    TypeInto(form, 1014, "0.02");
    Click(Field(form, 1));
  };
  const auto compare = [](QDialog& form) {
    Click(Field(form, 1015));
    Click(Field(form, 1));
  };
  const auto select = [](QDialog& selector) { AcceptName(selector, kPeaks); };
  const Step no = Press(Qt::Key_Escape);
  const Step enter = Press(Qt::Key_Return);
  const auto keep_name = [](QDialog& selector) { AcceptName(selector); };
  {
    const UserScript user({enter, set_up_pattern, enter, PickPeaks, keep_name, compare, enter, select, select, no, no,
                           Press(Qt::Key_Escape)});
    EXPECT_EQ(RunDesktop({{kPath, "SALT", "C:"}, {}}), 0);
  }
  EXPECT_GE(CountLines(ReadFile(kPeaks)), 5) << "beside the job";
  const std::string log = ReadFile(kLog);
  std::filesystem::remove(kLog);
  const SessionResult terminal =
      RunSession({"SALT", "C:"}, std::string("1015=on\nok\nok\n") + kPeaks + "\n" + kPeaks + "\nno\nno\nexit\n");
  EXPECT_EQ(terminal.exit_code, 0) << terminal.messages;
  EXPECT_NE(log.find("Sample Name SALT.peaks.LST"), std::string::npos) << log;
  EXPECT_EQ(log, ReadFile(kLog));
}

}  // namespace
}  // namespace talven::test
