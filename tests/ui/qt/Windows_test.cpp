// The forms, the pane and the toolkit that shows them, without the program behind.
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

#include "support/TestFiles.h"
#include "support/qt/ToolkitTest.h"
#include "ui/forms/FormCatalogue.h"
#include "ui/qt/FormDialog.h"
#include "ui/qt/MainWindow.h"
#include "ui/qt/MessageDialog.h"
#include "ui/qt/OutputWindow.h"

namespace talven::test {
namespace {

void Activate(QWidget& widget) {
  widget.show();
  widget.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&widget)) << widget.objectName().toStdString();
}

struct OpenForm {
  explicit OpenForm(const FormState& filled) : state(filled) { Activate(dialog); }
  explicit OpenForm(int id) : OpenForm(FormState(*FindForm(id))) {}
  QString FocusedId() const { return dialog.focusWidget()->objectName(); }
  void Key(Qt::Key key) { QTest::keyClick(dialog.focusWidget(), key); }

  FormState state;
  int beeps = 0;
  FormDialog dialog{state, [this] { ++beeps; }, nullptr};
};

TEST(FormDialog, TabFollowsTheTableAndEnterPressesOk) {
  int id = 101;
  for (const QString expected :
       {"2 1005 1 1005", "3 1006 1015 1 2 1006", "4 1006 1013 1014 1030 1015 1016 1017 1018 1012 1024 1 1006",
        "5 1008 1 1008", "6 1015 1019 1020 1021 1 1015", "7 1 1",
        "8 1013 1016 1014 1019 1030 1020 1034 1017 1012 1015 1018 1 1013"}) {
    OpenForm form(++id);
    QString order = form.dialog.windowTitle() + " " + form.FocusedId();
    for (; order.size() < expected.size(); order += " " + form.FocusedId()) form.Key(Qt::Key_Tab);
    EXPECT_EQ(order.toStdString(), expected.toStdString());
    form.Key(Qt::Key_Return);
    EXPECT_TRUE(!form.dialog.isVisible() && form.dialog.result() == 1) << id;
  }
}

TEST(FormDialog, NothingIsCutOrCoveredInAnyFont) {
  const QFont usual = QApplication::font();
  for (int test = 0; test < 24; ++test) {
    QFont font = usual;
    font.setPointSizeF(usual.pointSizeF() * (test % 3 == 0 ? 1.0 : test % 3 == 1 ? 0.7 : 1.7));
    QApplication::setFont(font);
    OpenForm form(101 + test / 3);
    QRegion taken;
    for (const FormState::Field& field : form.state.Fields()) {
      SCOPED_TRACE(std::to_string(101 + test / 3) + " " + std::string(field.spec->text));
      const QWidget& widget = Field(form.dialog, field.spec->id);
      EXPECT_TRUE(form.dialog.rect().contains(widget.geometry()));
      if (field.spec->kind == FieldKind::kGroupBox) continue;
      const auto* const label = qobject_cast<const QLabel*>(&widget);
      const bool is_text = label != nullptr || qobject_cast<const QRadioButton*>(&widget) != nullptr;
      EXPECT_LE(is_text ? widget.sizeHint().width() : 0, widget.width());
      const QRect shown = label == nullptr ? widget.geometry() : QRect(widget.pos(), label->sizeHint());
      EXPECT_FALSE(taken.intersects(shown));
      taken += shown;
    }
  }
  QApplication::setFont(usual);
}

TEST(FormDialog, ABadNumberKeepsTheFocus) {
  using Row = std::tuple<int, int, const char*, bool>;
  for (const auto& [id, field, text, is_refused] :
       {Row{104, 1014, "0.001", false}, Row{108, 1014, "5e-2", false}, Row{104, 1014, "5.0001", true},
        Row{104, 1014, "0,05", true}, Row{104, 1014, "", true}, Row{108, 1030, "-7.5", false},
        Row{108, 1030, "x", true}, Row{108, 1030, "", false}, Row{108, 1019, "1-", true}, Row{108, 1019, "+3", false},
        Row{106, 1019, "-4", false}, Row{106, 1019, "", false}, Row{108, 1019, "6", true}}) {
    SCOPED_TRACE(text);
    OpenForm form(id);
    TypeInto(form.dialog, field, text);
    const std::string before(form.state.Text(field));
    form.Key(Qt::Key_Tab);
    EXPECT_TRUE(form.beeps == is_refused && (form.FocusedId().toInt() == field) == is_refused);
    EXPECT_EQ(form.state.Text(field), is_refused ? before : text);
    if (!is_refused) continue;
    EXPECT_EQ(Edit(form.dialog, field).selectedText(), text);
    form.Key(Qt::Key_Return);
    for (const int other : {1015, 1}) Click(Field(form.dialog, other));
    EXPECT_TRUE(form.dialog.isVisible() && form.beeps == 4 && !form.state.IsSet(1015)) << "a click elsewhere counts";
    form.dialog.EndAsItStands();
    EXPECT_EQ(form.state.Text(field), before) << "closing takes the last valid text";
  }
}

TEST(FormDialog, AFieldThatNobodyTouchedKeepsItsStoredValue) {
  FormState state(*FindForm(104));
  state.PutReal(1013, 1.54059997F, RealFormat{8, 5});
  state.PutReal(1014, 7.0F);
  OpenForm form(state);
  EXPECT_EQ(Edit(form.dialog, 1013).text(), "1.54060");
  EXPECT_EQ(Edit(form.dialog, 1014).text(), "0.050");
  EXPECT_TRUE(Edit(form.dialog, 1014).toolTip().endsWith("0.001 to 5"));
  for (int i = 0; i < 4; ++i) form.Key(Qt::Key_Tab);
  Click(Field(form.dialog, 1));
  EXPECT_EQ(form.state.Real(1013), 1.54059997F);
}

TEST(FormDialog, IntegerFieldsTakeDigitsAndSignsOnly) {
  OpenForm form(106);
  for (const auto& [typed, text, beeps] :
       {std::tuple("1a2.3 -", "123-", 3), {"123456789012", "12345678901", 4}, {"-1", "-1", 4}}) {
    TypeInto(form.dialog, 1020, typed);
    EXPECT_EQ(Edit(form.dialog, 1020).text(), text);
    EXPECT_EQ(form.beeps, beeps) << typed;
  }
  for (int i = 0; i < 3; ++i) form.Key(Qt::Key_Up);
  form.Key(Qt::Key_Return);
  EXPECT_EQ(form.state.Integer(1020), 2);
}

TEST(FormDialog, RadioButtonsHaveNumbersAndOnlyAFormWithExitCanBeEscapedFrom) {
  OpenForm options(103);
  int number = 0;
  for (const int id : {1006, 1007, 1008, 1009, 1010, 1011, 1022, 1031, 1035}) {
    Click(Field(options.dialog, id));
    EXPECT_EQ(options.state.ChosenRadio(1006), ++number);
  }
  options.Key(Qt::Key_Escape);
  EXPECT_TRUE(!options.dialog.isVisible() && options.dialog.result() == 2);
  OpenForm job(102);
  job.Key(Qt::Key_Escape);
  job.dialog.close();
  EXPECT_TRUE(job.dialog.isVisible());
  QTest::keyClicks(job.dialog.focusWidget(), "abc");
  EXPECT_EQ(job.state.Text(1005), "abc") << "the proposed name is selected, so that typing replaces it";
}

TEST(PaneWidget, AFullPageOfFullLinesFitsEverySizeInEveryFont) {
  QStringList families = {QFontDatabase::systemFont(QFontDatabase::FixedFont).family(), QFont().family()};
  for (const QString& family : QFontDatabase::families())
    if (QFontDatabase::isFixedPitch(family)) families += family;
  for (const QString& family : families) {
    for (const QSize size : {QSize(300, 200), QSize(640, 650), QSize(2000, 700), QSize(500, 1900)}) {
      SCOPED_TRACE(family.toStdString() + " " + std::to_string(size.width()));
      PaneWidget pane;
      pane.setFont(QFont(family));
      pane.resize(size);
      for (int line = 0; line < 42; ++line) pane.DrawTextAt(5.0, 290.0 - 7.0 * line, QString(80, '0'));
      const QRect first = pane.CharacterRect(0), last = pane.CharacterRect(41 * 81 + 79);
      EXPECT_TRUE(pane.rect().contains(first) && pane.rect().contains(last)) << last.right() << ' ' << last.bottom();
      EXPECT_NEAR(first.left(), size.width() * 0.05, 1.0);
      EXPECT_NEAR(first.center().y(), size.height() * 10.0 / 300.0, 3.0);
      EXPECT_NEAR(last.center().y(), size.height() * 297.0 / 300.0, 3.0);
      for (int line = 1; line < 42; ++line)
        EXPECT_GT(pane.CharacterRect(line * 81).top(), pane.CharacterRect((line - 1) * 81).bottom()) << line;
      const QImage full = pane.grab(last).toImage();
      pane.Clear();
      EXPECT_NE(pane.grab(last).toImage(), full);
    }
  }
}

TEST(PaneWidget, TextIsSelectedCopiedAndReadByAssistivePrograms) {
  PaneWidget pane;
  pane.resize(640, 650);
  Activate(pane);
  pane.DrawTextAt(5.0, 290.0, "  alpha   ");
  pane.DrawTextAt(5.0, 283.0, "beta");
  QTest::mousePress(&pane, Qt::LeftButton, {}, pane.CharacterRect(2).center() - QPoint(3, 0));
  QTest::mouseClick(&pane, Qt::LeftButton, Qt::ShiftModifier, pane.CharacterRect(9).center() + QPoint(1, 0));
  pane.setFocus();
  QTest::keySequence(&pane, QKeySequence::Copy);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "alpha\nbe");

  QAccessibleInterface* const reader = QAccessible::queryAccessibleInterface(&pane);
  QAccessibleTextInterface* const text = reader->textInterface();
  EXPECT_EQ(reader->text(QAccessible::Value), "  alpha\nbeta");
  int start = 0, end = 0;
  EXPECT_EQ(text->textAtOffset(9, QAccessible::LineBoundary, &start, &end), "beta");
  text->selection(0, &start, &end);
  EXPECT_EQ(text->text(start, end), "alpha\nbe");
  EXPECT_TRUE(reader->state().readOnly);
  pane.Clear();
  EXPECT_EQ(text->characterCount(), 0);
}

TEST_F(QtToolkitTest, MessageBoxesGiveTheAnswerOfTheirButton) {
  using enum MessageType;
  using Row = std::tuple<MessageType, int, int>;
  for (const auto& [type, default_button, answer] :
       {Row{kOk, 1, 1}, Row{kOkCancel, 2, 0}, Row{kRetryCancel, 1, 1}, Row{kYesNo, 1, 1}, Row{kYesNo, 2, 2},
        Row{kYesNoCancel, 3, 0}, Row{kAbortRetryIgnore, 1, 2}, Row{kAbortRetryIgnore, 3, 0}}) {
    const UserScript user({[key = type == kOk ? Qt::Key_Escape : Qt::Key_Return](QDialog& box) {
      EXPECT_EQ(dynamic_cast<MessageDialog&>(box).Text(), "one\ntwo");
      EXPECT_FALSE(box.findChild<QLabel*>("icon")->pixmap().isNull());
      QTest::keyClick(box.focusWidget(), key);
    }});
    toolkit.WMessageBox({type, MessageIcon::kExclamation, default_button, "one\rtwo", " "});
    EXPECT_EQ(Outcome(), answer) << static_cast<int>(type) << default_button;
  }
}

TEST_F(QtToolkitTest, FileSelectorMovesToTheFolderOfTheFile) {
  const auto folder = Path() / "däta";
  std::filesystem::create_directory(folder);
  for (const char* file : {"däta/PEAKS.lst", "däta/OTHER.HKL"}) WriteFile(file, "");
  const auto choose = [](QDialog& dialog) {
    const QRect texts(Window().Texts().mapToGlobal(QPoint()), Window().Texts().size());
    EXPECT_TRUE(!Window().HasPlotColumn() || !dialog.geometry().intersects(texts)) << "it covers no lines";
    AcceptName(dialog, "däta");
    auto* const list = dialog.findChild<QAbstractItemView*>("listView");
    EXPECT_TRUE(QTest::qWaitFor([&] { return list->model()->rowCount(list->rootIndex()) == 1; }));
    AcceptName(dialog, "PEAKS.lst");
  };
  const UserScript user({Press(Qt::Key_Escape), choose, [](QDialog& dialog) { AcceptName(dialog); }});
  Select("Kestra File LST|");
  EXPECT_EQ(std::pair(name, std::filesystem::current_path()), std::pair(std::string("*.LST"), Path()));
  Select("Kestra File LST|");
  EXPECT_EQ(Outcome(), 1);
  EXPECT_EQ(std::pair(name, std::filesystem::current_path()), std::pair((folder / "PEAKS.lst").string(), folder));
  name = "ABC.HKL";
  Select(kJobFileFilter);
  EXPECT_EQ(name, (folder / "ABC.HKL").string()) << "the proposed file need not exist";
}

OutputWindow& Output() {
  for (QWidget* const window : QApplication::topLevelWidgets())
    if (auto* const output = qobject_cast<OutputWindow*>(window)) return *output;
  throw std::runtime_error("no output window");
}
QString OutputText() { return Output().findChild<QPlainTextEdit*>()->toPlainText(); }

TEST_F(QtToolkitTest, KeepsTheOutputOfAProgramThatWentWrong) {
  WriteProgram("good.exe", "echo \"$1 runs\"; echo x >ABC.FCF");
  WriteProgram("bad.exe", "echo no; echo x >ABC.FCF; exit 3");
  WriteProgram("none.exe", "exit 0");
  WriteProgram("crash.exe", "kill -SEGV $$");
  Window().setWindowState(Qt::WindowNoState);
  Window().resize(1600, 1000);
  QTest::qWait(1);
  using Row = std::tuple<const char*, std::optional<int>, bool, const char*>;
  for (const auto& [program, code, is_kept, said] :
       {Row{"good", 0, false, "ABC runs"}, Row{"bad", 3, true, "ended with code 3"},
        Row{"none", 0, true, "left no file ABC.FCF"}, Row{"crash", 128 + 11, true, "ended with code 139"},
        Row{"missing", std::nullopt, true, "/exe/missing"}}) {
    SCOPED_TRACE(program);
    std::filesystem::remove("ABC.FCF");
    EXPECT_EQ(toolkit.IOsCommand("C:\\exe\\" + std::string(program) + ".exe ABC C:", kWait), code);
    EXPECT_EQ(Output().isVisible(), is_kept);
    EXPECT_TRUE(OutputText().contains(said)) << OutputText().toStdString();
    Output().close();
  }
  toolkit.WindowClose();
  EXPECT_EQ(toolkit.IOsCommand("C:\\exe\\none.exe ABC C:", kWait), 0);
  EXPECT_TRUE(Output().isVisible()) << "also when the main window has gone";
}

TEST_F(QtToolkitTest, InASmallWindowTheOutputStandsInATab) {
  WriteProgram("none.exe", "echo nothing");
  Window().setWindowState(Qt::WindowNoState);
  Window().resize(683, 384);
  QTest::qWait(1);
  toolkit.IOsCommand("C:\\exe\\none.exe ABC C:", kWait);
  EXPECT_FALSE(Output().isVisible()) << "it would lie over the form";
  EXPECT_TRUE(Window().findChild<QPlainTextEdit*>("Output")->toPlainText().contains("left no file ABC.FCF"));
  toolkit.WindowClose();
  EXPECT_TRUE(Output().isVisible()) << "it outlasts the main window";
}

TEST_F(QtToolkitTest, AProgramThatRunsIsShownAndCanBeStopped) {
  WriteProgram("slow.exe", "echo half a file >abc.fcf; echo begun; sleep 60 & wait; echo never");
  QTimer user;
  QObject::connect(&user, &QTimer::timeout, [&] {
    if (!Output().isVisible() || !OutputText().contains("begun")) return;
    user.stop();
    EXPECT_TRUE(Output().findChild<QLabel*>()->text().startsWith("Refining ABC, 0:0"));
    EXPECT_TRUE(Window().findChild<QLabel*>("activity")->text().startsWith("Refining ABC, 0:0"));
    EXPECT_TRUE(Window().isEnabled());
    Output().close();
    EXPECT_TRUE(Output().isVisible()) << "it can't be closed as long as the program runs";
    QTest::mouseClick(Output().findChild<QPushButton*>(), Qt::LeftButton);
  });
  user.start(10);
  EXPECT_EQ(toolkit.IOsCommand("C:\\exe\\slow.exe ABC C:", kWait), 128 + 15);
  EXPECT_TRUE(OutputText().contains("stopped") && OutputText().contains("not the model's"));
  EXPECT_FALSE(std::filesystem::exists("abc.fcf")) << "what was stopped may have left half a file";
  EXPECT_TRUE(Window().findChild<QLabel*>("remark")->text().contains("not the model's"));
}

TEST_F(QtToolkitTest, AClosedWindowAnswersEverythingElse) {
  const UserScript user({[](QDialog& form) { form.window()->close(); }, Press(Qt::Key_Return)});
  for (const auto& [form, button] : {std::pair(kOptionForm, 2), {kPatternForm, 1}}) {
    toolkit.WDialogLoad(form);
    toolkit.WDialogShow(-1, -1, 0, kModal);
    EXPECT_EQ(toolkit.WDialogQuery(kExitButtonQuery), button);
  }
  Select(kJobFileFilter);
  EXPECT_EQ(Outcome(), 0);
  toolkit.WMessageBox({.type = MessageType::kYesNo, .text = "?", .title = " "});
  EXPECT_EQ(Outcome(), 2);
  toolkit.WMessageBox({.text = "told", .title = " "});
}

}  // namespace
}  // namespace talven::test
