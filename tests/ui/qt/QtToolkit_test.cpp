#include "ui/qt/QtToolkit.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QTest>
#include <filesystem>

#include "support/TestFiles.h"
#include "support/qt/UserScript.h"
#include "ui/forms/FormCatalogue.h"
#include "ui/qt/MainWindow.h"

namespace talven::test {
namespace {

namespace fs = std::filesystem;

struct OpenWindow {
  OpenWindow() : toolkit({"/usr/bin/talven"}) { toolkit.WindowOpen({.flags = 7, .title = "TALVEN"}); }
  QtToolkit toolkit;
};

TEST(QtToolkit, MessageBoxesGiveTheAnswerOfTheirButton) {
  using enum MessageType;
  struct Case {
    MessageType type;
    int default_button;
    Qt::Key key;
    int answer;
  };
  OpenWindow window;
  for (const Case& c : {Case{kOk, 1, Qt::Key_Escape, 1}, Case{kOkCancel, 2, Qt::Key_Return, 0},
                        Case{kRetryCancel, 1, Qt::Key_Return, 1}, Case{kYesNo, 1, Qt::Key_Return, 1},
                        Case{kYesNo, 2, Qt::Key_Return, 2}, Case{kYesNoCancel, 3, Qt::Key_Return, 0},
                        Case{kAbortRetryIgnore, 1, Qt::Key_Return, 2}, Case{kAbortRetryIgnore, 3, Qt::Key_Return, 0}}) {
    UserScript user;
    user.Then([&](QDialog& box) {
      EXPECT_EQ(dynamic_cast<QMessageBox&>(box).text(), "one\ntwo");
      EXPECT_EQ(dynamic_cast<QMessageBox&>(box).icon(), QMessageBox::Warning);
      QTest::keyClick(&box, c.key);
    });
    window.toolkit.WMessageBox({c.type, MessageIcon::kExclamation, c.default_button, "one\rtwo", " "});
    EXPECT_EQ(window.toolkit.WDialogQuery(kOutcomeQuery), c.answer) << static_cast<int>(c.type) << c.default_button;
  }
}

TEST(QtToolkit, FileSelectorMovesToTheFolderOfTheFile) {
  TestDirectory directory;
  fs::create_directory("däta");
  WriteFile("däta/PEAKS.lst", "");
  WriteFile("däta/OTHER.HKL", "");
  OpenWindow window;
  UserScript user;
  user.ThenPress(Qt::Key_Escape)
      .Then([](QDialog& dialog) {
        AcceptName(dialog, "däta");
        auto* const list = dialog.findChild<QAbstractItemView*>("listView");
        EXPECT_TRUE(QTest::qWaitFor([&] { return list->model()->rowCount(list->rootIndex()) == 1; }));
        AcceptName(dialog, "PEAKS.lst");
      })
      .Then([](QDialog& dialog) { AcceptName(dialog); });
  std::string name = "*.LST";
  window.toolkit.WSelectFile("Kestra File LST|", kKeepDirectory, name, "Reference");
  EXPECT_EQ(name, "*.LST");
  EXPECT_EQ(fs::current_path(), directory.Path());
  window.toolkit.WSelectFile("Kestra File LST|", kKeepDirectory, name, "Reference");
  EXPECT_EQ(window.toolkit.WDialogQuery(kOutcomeQuery), 1);
  EXPECT_EQ(name, (directory.Path() / "däta/PEAKS.lst").string());
  EXPECT_EQ(fs::current_path(), directory.Path() / "däta");
  name = "ABC.HKL";
  window.toolkit.WSelectFile(kJobFileFilter, kKeepDirectory, name, "Folder");
  EXPECT_EQ(name, (directory.Path() / "däta/ABC.HKL").string()) << "the proposed file need not exist";
}

TEST(QtToolkit, WaitsForAProgramAndShowsWhatItPrints) {
  TestDirectory directory;
  directory.WriteProgram("a.exe", "echo \"$1 runs\"; until test -e go; do sleep 0.01; done; cat; exit 3");
  directory.WriteProgram("b.exe", "kill -SEGV $$");
  OpenWindow window;
  UserScript user;
  user.Then([](QDialog& output) {
    const auto* const text = output.findChild<QPlainTextEdit*>();
    EXPECT_TRUE(QTest::qWaitFor([&] { return text->toPlainText() == "ABC runs\n"; }));
    EXPECT_FALSE(output.parentWidget()->isEnabled());
    QTest::keyClick(&output, Qt::Key_Escape);
    output.close();
    EXPECT_TRUE(output.isVisible());
    WriteFile("go", "");
  });
  EXPECT_EQ(window.toolkit.IOsCommand("C:\\exe\\a.exe ABC C:", kWait), 3);
  EXPECT_TRUE(user.IsDone());
  EXPECT_EQ(window.toolkit.IOsCommand("C:\\exe\\b.exe", kWait | kHidden), 128 + 11);
  EXPECT_EQ(window.toolkit.IOsCommand("C:\\exe\\none.exe", kWait), std::nullopt);
}

TEST(QtToolkit, AClosedWindowAnswersEverythingElse) {
  OpenWindow window;
  UserScript user;
  user.Then([](QDialog& form) { form.parentWidget()->close(); });
  const auto show = [&](int form) {
    window.toolkit.WDialogLoad(form);
    window.toolkit.WDialogShow(-1, -1, 0, kModal);
    return window.toolkit.WDialogQuery(kExitButtonQuery);
  };
  EXPECT_EQ(show(kOptionForm), 2);
  EXPECT_EQ(show(kPatternForm), 1);
  std::string name = "A.HKL";
  window.toolkit.WSelectFile(kJobFileFilter, kKeepDirectory, name, "");
  EXPECT_EQ(window.toolkit.WDialogQuery(kOutcomeQuery), 0);
  window.toolkit.WMessageBox({.type = MessageType::kYesNo, .text = "?", .title = " "});
  EXPECT_EQ(window.toolkit.WDialogQuery(kOutcomeQuery), 2);
  user.ThenPress(Qt::Key_Return);
  window.toolkit.WMessageBox({.text = "told", .title = " "});
  EXPECT_TRUE(user.IsDone());
}

}  // namespace
}  // namespace talven::test
