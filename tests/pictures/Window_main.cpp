// Takes pictures of the window with every form and in every state, on the screen that it is started on.
//
// usage: window_pictures FOLDER light|dark
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <cstdio>
#include <functional>
#include <iostream>

#include "app/desktop/WindowPlot.h"
#include "support/Session.h"
#include "support/TestFiles.h"
#include "support/qt/UserScript.h"
#include "ui/Ui.h"
#include "ui/forms/FormCatalogue.h"
#include "ui/qt/DesktopSession.h"
#include "ui/qt/FormDialog.h"
#include "ui/qt/MainWindow.h"
#include "ui/qt/OutputWindow.h"
#include "ui/qt/QtToolkit.h"

namespace talven::test {
namespace {

QPalette DarkPalette() {
  QPalette dark(QColor(0x2d, 0x2f, 0x33), QColor(0x2d, 0x2f, 0x33));
  dark.setColor(QPalette::Base, QColor(0x1e, 0x1f, 0x22));
  dark.setColor(QPalette::Link, QColor(0x6c, 0xb0, 0xf5));
  return dark;
}

template <typename Wanted>
Wanted& TopLevel() {
  for (QWidget* const widget : QApplication::topLevelWidgets())
    if (auto* const window = dynamic_cast<Wanted*>(widget)) return *window;
  throw std::runtime_error("a window is missing");
}

/// A made list, strong and weak in turn.
std::string Reflections() {
  std::string list;
  unsigned state = 1;
  for (int h = -4; h <= 4; ++h)
    for (int k = 0; k <= 5; ++k)
      for (int l = 0; l <= 7; ++l) {
        state = state * 1664525U + 1013904223U;
        const auto strength = static_cast<double>((state >> 24) % 16);
        if (h == 0 && k == 0 && l == 0) continue;
        char row[40];
        std::snprintf(row, sizeof row, "%4d%4d%4d%8.2f%8.2f\n", h, k, l, strength * strength * strength, 1.0);
        list += row;
      }
  return list;
}

/// A session with the window, without the program behind it.
class Studio {
 public:
  explicit Studio(QString folder) : folder_(std::move(folder)) {
    WriteFile("ABC.INS", "TITL abc in P 21/c\nCELL 0.71073 5.6402 8.1234 12.3456 90 101.23 90\nLATT 1\n");
    WriteFile("ABC.HKL", Reflections());
    toolkit_.WhenOpened(PutPlotInto);
    toolkit_.WindowOpen({.flags = 7, .title = "TALVEN  by the Talven developers"});
    toolkit_.JobSettled("ABC");
    for (const char* const line :
         {"    ****************************************", "    *****  TALVEN  X-Ray Powder Utility ****",
          "    ****************************************", "    *****   by the Talven developers   *****",
          "    ****************************************", "  CELL",
          "   0.710730   5.6402   8.1234  12.3456  90.0000 101.2300  90.0000", "  Volume     554.812"})
      ui_.ShowLine(line);
  }

  MainWindow& Window() { return TopLevel<MainWindow>(); }
  QtToolkit& GetToolkit() { return toolkit_; }
  Ui& GetUi() { return ui_; }
  TestDirectory& Directory() { return directory_; }

  void Take(const QString& name) {
    QTest::qWait(120);
    QGuiApplication::primaryScreen()->grabWindow(0).save(folder_ + '/' + name + ".png");
  }

  /// Shows a form, lets somebody use it, takes a picture and ends it.
  void TakeForm(int id, const QString& name, const std::function<void(FormDialog&)>& use = {}) {
    const UserScript user({[&](QDialog& dialog) {
      auto& form = dynamic_cast<FormDialog&>(dialog);
      if (use) use(form);
      // Without what is around it, as the manual shows it.
      if (!use) form.parentWidget()->grab().save(folder_ + "/only-" + name + ".png");
      if (!form.isVisible()) return;
      Take(name);
      form.EndAsItStands();
    }});
    toolkit_.WDialogLoad(id);
    toolkit_.WDialogShow(-1, -1, 0, kModal);
    toolkit_.WDialogUnload(id);
  }

  void TakeMessage(const Message& message, const QString& name) {
    const UserScript user({[&](QDialog& dialog) {
      Take(name);
      dialog.reject();
    }});
    toolkit_.WMessageBox(message);
  }

 private:
  TestDirectory directory_;
  QString folder_;
  QtToolkit toolkit_{{"/usr/bin/talven"}};
  Ui ui_{toolkit_};
};

void TakeForms(Studio& studio) {
  for (int id = kJobNameForm; id <= kComparisonForm; ++id) studio.TakeForm(id, "form-" + QString::number(id));
  studio.TakeForm(kPatternForm, "other-wavelength", [](FormDialog& form) {
    Click(Field(form, 1008));
    Click(Field(form, 1015));
  });
  for (const char* const text : {"0,02", "7"}) {
    studio.TakeForm(kPatternForm, QString("refused-") + (*text == '7' ? "range" : "comma"), [&](FormDialog& form) {
      TypeInto(form, 1014, text);
      Click(Field(form, 1));
    });
  }
  studio.TakeForm(kComparisonForm, "refused-comparison", [](FormDialog& form) {
    TypeInto(form, 1034, "11");
    Click(Field(form, 1));
  });
  studio.TakeForm(kOptionForm, "option-by-keys", [](FormDialog& form) {
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Right}) QTest::keyClick(form.focusWidget(), key);
  });
  studio.TakeForm(kJobNameForm, "job-names", [](FormDialog& form) { QTest::keyClicks(form.focusWidget(), "a"); });
}

void TakeMessages(Studio& studio) {
  studio.TakeMessage({.text = "HKL File NOT Found", .title = " "}, "message-missing");
  studio.TakeMessage({.text = "ABC.ING (+CPI, XY, PAT) written", .title = " "}, "message-written");
  studio.TakeMessage({MessageType::kYesNo, MessageIcon::kQuestion, 1, "Compare another Powder LST file", " "},
                     "message-question");
  studio.TakeMessage({.icon = MessageIcon::kStop,
                      .text = "ABC.INS, line 4: expected 7 numbers after CELL, found 5",
                      .title = "TALVEN"},
                     "message-error");
}

/// A run that has written files: their links, and what they open.
void TakeRun(Studio& studio) {
  studio.TakeForm(kOptionForm, "options", [](FormDialog& form) { Click(Field(form, 1)); });
  RunSession({"ABC", "C:"}, "1006=1\nok\nok\nexit\n");
  for (int line = 0; line < 40; ++line) studio.GetUi().ShowLine("   line of progress " + std::to_string(line));
  studio.TakeMessage({.text = "ABC.ING (+CPI, XY, PAT) written", .title = " "}, "run-written");
  MainWindow& window = studio.Window();
  studio.TakeForm(kOptionForm, "run-viewer",
                  [&](FormDialog&) { emit window.Status().FileAsked(QDir::current().filePath("SBRAG.LST")); });
  studio.TakeForm(kPatternForm, "run-plot",
                  [&](FormDialog&) { emit window.Status().FileAsked(QDir::current().filePath("ABC.ING")); });
  studio.GetToolkit().TellProgress(2, 5);
  QTest::qWait(600);
  studio.Take("progress");
}

/// What stands around the forms.
void TakeSurroundings(Studio& studio) {
  MainWindow& window = studio.Window();
  const auto on_form = [&](const QString& name, const std::function<void()>& use) {
    studio.TakeForm(kPatternForm, name, [&](FormDialog&) { use(); });
  };
  on_form("leave", [&] { window.close(); });
  on_form("all-lines", [&] { window.Texts().setCurrentIndex(1); });
  on_form("manual", [&] { QTest::keyClick(&window, Qt::Key_F1); });
  window.Texts().ShowPage();
  on_form("about", [&] {
    for (QAction* const action : window.findChildren<QAction*>())
      if (action->text().contains("About")) action->trigger();
  });
  for (QDialog* const dialog : window.findChildren<QDialog*>("about")) dialog->close();
  on_form("menu", [&] { window.menuBar()->setActiveAction(window.HelpMenu().menuAction()); });
  if (QWidget* const menu = QApplication::activePopupWidget()) menu->close();
}

void TakePrograms(Studio& studio) {
  studio.Directory().WriteProgram("slow.exe", "echo ' cycle 1 of 4'; sleep 2; echo ' cycle 2 of 4'; exec sleep 60");
  QTimer::singleShot(1500, [&] {
    studio.Take("program-runs");
    QTest::mouseClick(TopLevel<OutputWindow>().findChild<QPushButton*>(), Qt::LeftButton);
  });
  studio.GetToolkit().IOsCommand("C:\\exe\\slow.exe ABC C: AUTO", kWait);
  studio.TakeForm(kPatternForm, "program-stopped");
  studio.GetToolkit().IOsCommand("C:\\exe\\none.exe ABC C: AUTO", kWait);
  studio.TakeForm(kPatternForm, "program-missing");
  TopLevel<OutputWindow>().close();
}

}  // namespace

void TakeAll(const QString& folder) {
  Studio studio(folder);
  TakeForms(studio);
  TakeMessages(studio);
  TakeRun(studio);
  TakeSurroundings(studio);
  TakePrograms(studio);
}

}  // namespace talven::test

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: window_pictures FOLDER light|dark\n";
    return 2;
  }
  const QTemporaryDir state;
  qputenv("XDG_STATE_HOME", state.path().toLocal8Bit());
  const talven::DesktopSession session(argv);
  if (std::string_view(argv[2]) == "dark") QApplication::setPalette(talven::test::DarkPalette());
  const QString folder = QFileInfo(argv[1]).absoluteFilePath();
  QDir().mkpath(folder);
  talven::test::TakeAll(folder);
  return 0;
}
