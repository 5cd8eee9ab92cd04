// The window around the forms: its areas, help, refusals, what it remembers and how it is left.
#include <QAccessible>
#include <QClipboard>
#include <QDropEvent>
#include <QFile>
#include <QLabel>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTextBrowser>

#include "support/qt/ToolkitTest.h"
#include "ui/qt/FieldHelp.h"
#include "ui/qt/FormDialog.h"
#include "ui/qt/MessageDialog.h"
#include "ui/qt/Overlay.h"

namespace talven::test {
namespace {

using Use = std::function<void(FormDialog&)>;

struct MainWindowTest : QtToolkitTest {
  /// Shows a form, lets the user do something with it and ends it, if it is still there.
  void Ask(int id, const Use& use) {
    const UserScript user({[&](QDialog& dialog) {
      auto& form = dynamic_cast<FormDialog&>(dialog);
      use(form);
      if (form.isVisible()) form.EndAsItStands();
    }});
    toolkit.WDialogLoad(id);
    toolkit.WDialogShow(-1, -1, 0, kModal);
  }
  QLabel& Note() { return *Window().findChild<QLabel*>("refusal"); }
  QLabel& Part(const char* part) { return *Window().findChild<QLabel*>(part); }
  void PressButton(const char* text) {
    for (QPushButton* const button : Window().findChildren<QPushButton*>())
      if (button->text() == text) QTest::mouseClick(button, Qt::LeftButton);
  }
};

QRect Shown(const QWidget& widget) {
  if (!widget.isVisible()) return {};
  return QRect(widget.mapTo(widget.window(), QPoint()), widget.size()) & widget.window()->rect();
}

TEST_F(MainWindowTest, AreasNeverCoverEachOther) {
  for (const QSize size : {QSize(683, 384), QSize(1366, 768), QSize(960, 540), QSize(1920, 1080), QSize(3840, 2160)}) {
    for (const int id : {kJobNameForm, kOptionForm, kPatternForm, kComparisonForm}) {
      SCOPED_TRACE(std::to_string(size.width()) + " form " + std::to_string(id));
      Window().setWindowState(Qt::WindowNoState);
      Window().resize(size);
      Ask(id, [&](FormDialog& form) {
        QTest::qWait(20);
        EXPECT_EQ(Window().size(), size) << "nothing makes the window larger than its screen";
        const QRect texts = Shown(Window().Texts()), area = Shown(Window().Form()), plot = Shown(Window().Plot());
        EXPECT_TRUE(texts.width() > 150 && texts.height() > 100 && area.width() > 200);
        EXPECT_FALSE(texts.intersects(area) || area.intersects(plot) ||
                     (texts.intersects(plot) && size.width() > 1000));
        EXPECT_EQ(plot.isEmpty(), size.height() < 700) << "on a small screen behind a tab";
        EXPECT_EQ(Window().Form().horizontalScrollBar()->maximum(), 0) << "no form is scrolled sideways";
        const bool is_scrolled = size.height() < 400 && (id == kPatternForm || id == kComparisonForm);
        EXPECT_EQ(Window().Form().verticalScrollBar()->maximum() > 0, is_scrolled);
        EXPECT_TRUE(is_scrolled || area.contains(Shown(form)));
      });
      const UserScript user({[&](QDialog& box) {
        EXPECT_FALSE(Shown(Window().Texts()).intersects(Shown(box)));
        EXPECT_TRUE(Window().rect().contains(Shown(box)) && !Shown(box).isEmpty());
        for (const QTextEdit* const text : box.findChildren<QTextEdit*>())
          EXPECT_EQ(text->verticalScrollBar()->maximum(), 0) << "the text is seen whole";
        QTest::keyClick(box.focusWidget(), Qt::Key_Escape);
      }});
      toolkit.WMessageBox({.icon = MessageIcon::kStop,
                           .text =
                               "/home/somebody/measured/2026-11/in_one_long_folder_name/ABC.INS, line 4: expected 7 "
                               "numbers after CELL, found 5",
                           .title = "TALVEN"});
    }
  }
}

TEST_F(MainWindowTest, ARefusedNumberIsSaidBesideItsField) {
  using Row = std::tuple<int, int, const char*, const char*>;
  for (const auto& [id, field, text, said] : {Row{kPatternForm, 1014, "0,02", "Write a point, not a comma: 0.02"},
                                              Row{kPatternForm, 1014, "7", "Wanted: a number from 0.001 to 5"},
                                              Row{kPatternForm, 1030, "4,,5", "Wanted: a number from 0.5 to 40"},
                                              Row{kComparisonForm, 1019, "6", "Wanted: a whole number from 1 to 5"},
                                              Row{kComparisonForm, 1030, "x", "Wanted: a number"}}) {
    for (const bool by_mouse : {false, true}) {
      SCOPED_TRACE(std::string(text) + (by_mouse ? " by mouse" : " by key"));
      Ask(id, [&, field = field, text = text, said = said](FormDialog& form) {
        EXPECT_FALSE(Note().isVisible());
        TypeInto(form, field, text);
        if (by_mouse) Click(Field(form, 1));
        if (!by_mouse) QTest::keyClick(form.focusWidget(), Qt::Key_Return);
        EXPECT_TRUE(form.isVisible() && Note().isVisible());
        EXPECT_EQ(Note().text().toStdString(), said);
        EXPECT_FALSE(Shown(Note()).intersects(Shown(Field(form, field))));
        QTest::keyClicks(form.focusWidget(), "1");
        EXPECT_FALSE(Note().isVisible());
      });
    }
  }
}

TEST_F(MainWindowTest, ArrowsFollowTheEyeInTheFormOfOptions) {
  Ask(kOptionForm, [](FormDialog& form) {
    QString way;
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Right, Qt::Key_Up, Qt::Key_Left, Qt::Key_Up,
                              Qt::Key_Up, Qt::Key_Down, Qt::Key_Left}) {
      QTest::keyClick(form.focusWidget(), key);
      way += form.focusWidget()->objectName() + ' ';
    }
    EXPECT_EQ(way.toStdString(), "1022 1008 1007 1011 1022 1006 1035 1006 1006 ");
  });
}

TEST_F(MainWindowTest, AFieldThatIsNotUsedLooksSoAndCanBeFilled) {
  const auto looks_off = [](const QWidget& form, int id) {
    return Field(form, id).palette().color(QPalette::Base) == form.palette().color(QPalette::Window);
  };
  Ask(kPatternForm, [&](FormDialog& form) {
    EXPECT_TRUE(looks_off(form, 1013) && looks_off(form, 1016) && !looks_off(form, 1014));
    TypeInto(form, 1013, "1.2");
    EXPECT_EQ(Edit(form, 1013).text(), "1.2");
    Click(Field(form, 1008));
    Click(Field(form, 1015));
    EXPECT_TRUE(!looks_off(form, 1013) && !looks_off(form, 1016));
  });
}

TEST_F(MainWindowTest, TheRestCanBeUsedWhileAFormWaits) {
  const auto in_front = [] { return Window().Texts().currentWidget()->objectName(); };
  toolkit.WGrTextAt(5.0F, 290.0F, "first page");
  toolkit.WGrAreaClear();
  toolkit.WGrTextAt(5.0F, 290.0F, "second page");
  Ask(kPatternForm, [&](FormDialog& form) {
    EXPECT_TRUE(form.isAncestorOf(QApplication::focusWidget())) << "the form has the focus from the start";
    EXPECT_EQ(Window().findChild<QPlainTextEdit*>("all-lines")->toPlainText(), "first page\nsecond page");
    QTest::keyClick(&Window(), Qt::Key_F6);
    EXPECT_EQ(QApplication::focusWidget(), &Window().Pane());
    QTest::keySequence(&Window().Pane(), QKeySequence::SelectAll);
    QTest::keySequence(&Window().Pane(), QKeySequence::Copy);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "second page");
    EXPECT_TRUE(form.isVisible());
    QTest::keyClick(&Window(), Qt::Key_F1);
    const auto* const manual = Window().findChild<QTextBrowser*>("manual");
    EXPECT_TRUE(manual->toPlainText().contains("Form 4"));
    EXPECT_EQ(in_front(), "manual");
    QTest::keyClick(&Window(), Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(in_front(), "page");
    EXPECT_TRUE(form.isAncestorOf(QApplication::focusWidget()));
    QTest::keyClick(&Window(), Qt::Key_F1);
  });
  toolkit.WGrTextAt(5.0F, 283.0F, "a line behind the manual");
  EXPECT_EQ(in_front(), "page") << "nothing covers what is said";
}

TEST_F(MainWindowTest, ClosingAsksWhereAStepIsOpen) {
  Ask(kPatternForm, [&](FormDialog& form) {
    Window().close();
    PressButton("&Stay");
    EXPECT_TRUE(form.isVisible());
    TypeInto(form, 1014, "0.02");
    Window().close();
    PressButton("&Finish the step");
  });
  EXPECT_EQ(toolkit.WDialogQuery(kExitButtonQuery), kOkButton);
  EXPECT_EQ(toolkit.WDialogGetReal(1014), 0.02F);
  QtToolkit other{{"/usr/bin/talven"}};
  toolkit.WindowClose();
  other.WindowOpen({.title = "TALVEN"});
  const UserScript user({[&](QDialog&) {
    Window().close();
    PressButton("&Leave at once");
  }});
  other.WDialogLoad(kPatternForm);
  EXPECT_THROW(other.WDialogShow(-1, -1, 0, kModal), LeftAtOnce);
}

TEST_F(MainWindowTest, JobsUsedBeforeAreOfferedAndADamagedMemoryIsIgnored) {
  toolkit.JobSettled("QUARTZ");
  toolkit.JobSettled("SALT");
  const auto open_again = [&] {
    toolkit.WindowClose();
    toolkit.WindowOpen({.title = "TALVEN"});
    return Window().State().jobs;
  };
  EXPECT_EQ(open_again(), QStringList({"SALT", "QUARTZ"}));
  for (const auto& [keys, name_of_job] :
       {std::pair(std::vector{Qt::Key_Return}, "qu"),
        std::pair(std::vector{Qt::Key_Down, Qt::Key_Return, Qt::Key_Return}, "QUARTZ")}) {
    Window().activateWindow();  // No window manager gives the focus back when a list closes.
    Ask(kJobNameForm, [&, keys = keys](FormDialog& form) {
      EXPECT_EQ(Edit(form, 1005).text(), "String");
      QTest::keyClicks(form.focusWidget(), "qu");
      for (const Qt::Key key : keys) {
        QWidget* const list = QApplication::activePopupWidget();
        QTest::keyClick(list != nullptr ? list : form.focusWidget(), key);
      }
      EXPECT_FALSE(form.isVisible());
    });
    EXPECT_EQ(toolkit.WDialogGetString(1005), name_of_job);
  }
  QtToolkit other{{"/usr/bin/talven"}};
  other.WindowOpen({.title = "TALVEN"});
  other.JobSettled("SUGAR");
  other.WindowClose();
  EXPECT_EQ(open_again(), QStringList({"SUGAR", "SALT", "QUARTZ"})) << "each window keeps the jobs of the others";
  for (const QByteArray damaged :
       {"", "{\"jobs\": 7, \"borders\": {\"below\": [1, -2, \"x\"]}, \"geometry\": \"????\"}", "\xff\x00[{",
        "[1, 2]"}) {
    toolkit.WindowClose();
    QFile file(WindowStateFile());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(damaged);
    file.close();
    toolkit.WindowOpen({.title = "TALVEN"});
    EXPECT_TRUE(Window().State().jobs.isEmpty() && Window().isVisible());
  }
}

TEST_F(MainWindowTest, BordersThatWereMovedStayWhereTheyWere) {
  toolkit.WindowClose();
  WindowState state;
  state.borders = {{"columns", {800, 560}}, {"below", {500, 150}}};
  state.Write();
  for (int start = 0; start < 2; ++start) {
    toolkit.WindowOpen({.width = 1366, .height = 720, .title = "TALVEN"});
    Ask(kPatternForm, [&](FormDialog&) {
      EXPECT_NEAR(Window().Texts().width(), 800, 8) << start;
      EXPECT_NEAR(Window().Texts().height() * 1.0 / (Window().Texts().height() + Window().Form().height()), 0.77, 0.02);
    });
    toolkit.WindowClose();
  }
}

TEST_F(MainWindowTest, FilesOfTheLastRunAreLinksThatOpen) {
  toolkit.JobSettled("ABC");
  WriteFile("ABC.INS", "old");
  Ask(kOptionForm, [](FormDialog& form) { Click(Field(form, 1)); });
  for (const char* const file : {"SBRAG.LST", "ABC.CPI", "ABC.ING", "OTHER.ING"}) WriteFile(file, "text of a file");
  QSignalSpy shown(&Window(), &MainWindow::PatternToShow);
  Ask(kOptionForm, [&](FormDialog&) {
    EXPECT_EQ(Part("files").text().count("<a href"), 3);
    EXPECT_TRUE(Part("files").text().contains(">ABC.ING</a> &nbsp; <a") && !Part("files").text().contains("INS"));
    const QString list = QString::fromStdString((Path() / "SBRAG.LST").string());
    emit Window().Status().FileAsked(list);
    EXPECT_EQ(Window().findChild<QPlainTextEdit*>(list)->toPlainText(), "text of a file");
    Window().SetPlot(new QLabel("plot"), {"XRDML"});
    emit Window().Status().FileAsked(QString::fromStdString((Path() / "ABC.CPI").string()));
    emit Window().Status().FileAsked("scan.xrdml");
    toolkit.TellHint("ABC.FCF: holds LIST 6");
    EXPECT_EQ(Part("remark").text(), "ABC.FCF: holds LIST 6");
  });
  ASSERT_EQ(shown.size(), 3) << "the one that the run wrote, and those that were clicked";
  EXPECT_TRUE(shown[0][0].toString().endsWith("ABC.ING") && shown[1][0].toString().endsWith("ABC.CPI"));
}

TEST_F(MainWindowTest, AMissingFileIsToldWithItsPath) {
  toolkit.JobSettled("ABC");
  for (const auto& [text, path] :
       {std::pair("HKL File NOT Found", Path() / "ABC.HKL"), std::pair("INS File (d1) NOT Found", Path() / "ABC.INS"),
        std::pair("No Peaks in Ref.LST", std::filesystem::path())}) {
    const UserScript user({[&, text = text, path = path](QDialog& box) {
      EXPECT_EQ(dynamic_cast<MessageDialog&>(box).Text(), text) << "its words are kept";
      const QTextEdit* underneath = nullptr;
      for (const QTextEdit* const shown : box.findChildren<QTextEdit*>())
        if (shown->accessibleName() == "Full path") underneath = shown;
      EXPECT_EQ(underneath == nullptr ? "" : underneath->toPlainText().toStdString(), path.string());
      QTest::keyClick(box.focusWidget(), Qt::Key_Return);
    }});
    toolkit.WMessageBox({.text = text, .title = " "});
  }
}

TEST_F(MainWindowTest, EverythingHasANameAndFieldsHaveHelp) {
  for (int id = kJobNameForm; id <= kComparisonForm; ++id) {
    Ask(id, [&](FormDialog& form) {
      for (const QWidget* const widget : Window().findChildren<QWidget*>()) {
        if (!widget->isVisible() || (widget->focusPolicy() & Qt::TabFocus) == 0) continue;
        QAccessibleInterface* const reader = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget));
        EXPECT_FALSE(reader->text(QAccessible::Name).isEmpty())
            << id << ' ' << widget->metaObject()->className() << ' ' << widget->objectName().toStdString();
      }
      if (id != kPatternForm && id != kComparisonForm) return;
      for (const FieldSpec& field : form.Spec().fields) {
        const bool has_value =
            IsNumeric(field.kind) || field.kind == FieldKind::kCheck || field.kind == FieldKind::kRadio;
        EXPECT_EQ(Field(form, field.id).whatsThis().isEmpty(), !has_value) << id << ' ' << field.id;
        EXPECT_EQ(Field(form, field.id).toolTip().isEmpty(), !has_value) << id << ' ' << field.id;
      }
    });
  }
}

TEST_F(MainWindowTest, AFileGivesJobAndFolder) {
  std::filesystem::create_directory("data");
  toolkit.StartWithFile((Path() / "data" / "QUARTZ.FCF").string());
  toolkit.WDialogLoad(kJobNameForm);
  toolkit.WDialogShow(-1, -1, 0, kModal);
  EXPECT_EQ(toolkit.WDialogGetString(1005), "QUARTZ");
  name = "QUARTZ.HKL";
  Select(kJobFileFilter);
  EXPECT_EQ(name, (Path() / "data" / "QUARTZ.HKL").string());
  EXPECT_EQ(std::filesystem::current_path(), Path() / "data");
  Ask(kJobNameForm, [](FormDialog&) {
    QMimeData file;
    file.setUrls({QUrl::fromLocalFile("/somewhere/SALT.INS")});
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &file, Qt::LeftButton, {});
    QApplication::sendEvent(&Window(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop({5, 5}, Qt::CopyAction, &file, Qt::LeftButton, {});
    QApplication::sendEvent(&Window(), &drop);
  });
  EXPECT_EQ(toolkit.WDialogGetString(1005), "SALT") << "as by a drop while the form waits";
}

TEST_F(MainWindowTest, APatternThatIsDroppedOnThePlotIsOnlyShown) {
  QSignalSpy shown(&Window(), &MainWindow::PatternToShow);
  QSignalSpy chosen(&Window(), &MainWindow::JobFileChosen);
  auto* const plot = new QWidget;
  Window().SetPlot(plot, {"XRDML"});
  Ask(kJobNameForm, [&](FormDialog&) {
    Window().resize(1600, 900);
    QTest::qWait(1);
    ASSERT_TRUE(plot->isVisible());
    for (const char* const path : {"/somewhere/A.xrdml", "/somewhere/A.INS"}) {
      QMimeData file;
      file.setUrls({QUrl::fromLocalFile(path)});
      const QPoint place = plot->mapTo(&Window(), plot->rect().center());
      QDragEnterEvent enter(place, Qt::CopyAction, &file, Qt::LeftButton, {});
      QApplication::sendEvent(&Window(), &enter);
      QDropEvent drop(place, Qt::CopyAction, &file, Qt::LeftButton, {});
      QApplication::sendEvent(&Window(), &drop);
    }
  });
  ASSERT_EQ(shown.size(), 1);
  EXPECT_EQ(shown[0][0].toString(), "/somewhere/A.xrdml");
  EXPECT_EQ(chosen.size(), 1) << "a file of a job is one wherever it is dropped";
}

}  // namespace
}  // namespace talven::test
