#include "ui/qt/FormDialog.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QRadioButton>
#include <QTest>
#include <vector>

#include "support/qt/UserScript.h"
#include "ui/forms/FormCatalogue.h"

namespace talven::test {
namespace {

struct OpenForm {
  explicit OpenForm(int id)
      : state(*FindForm(id)),
        dialog(
            state, [this] { ++beeps; }, nullptr) {
    dialog.show();
    dialog.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog)) << id;
  }
  int FocusedId() const { return dialog.focusWidget()->objectName().toInt(); }
  void Key(Qt::Key key) { QTest::keyClick(dialog.focusWidget(), key); }

  FormState state;
  int beeps = 0;
  FormDialog dialog;
};

TEST(FormDialog, TabFollowsTheTableAndEnterPressesOk) {
  const std::vector<std::pair<int, std::vector<int>>> cases = {
      {102, {1005, 1}},
      {103, {1006, 2, 1015, 1}},
      {104, {1006, 1013, 1014, 1030, 1015, 1016, 1017, 1018, 1012, 1024, 1}},
      {105, {1008, 1}},
      {106, {1015, 1019, 1020, 1021, 1}},
      {107, {1}},
      {108, {1013, 1016, 1014, 1019, 1030, 1020, 1034, 1017, 1012, 1015, 1018, 1}},
  };
  for (const auto& [id, expected] : cases) {
    OpenForm form(id);
    std::vector<int> order;
    for (std::size_t i = 0; i < expected.size(); ++i, form.Key(Qt::Key_Tab)) order.push_back(form.FocusedId());
    EXPECT_EQ(order, expected) << id;
    EXPECT_EQ(form.FocusedId(), expected.front()) << id;
    EXPECT_EQ(form.dialog.windowTitle(), QString::number(id - 100));
    form.Key(Qt::Key_Return);
    EXPECT_FALSE(form.dialog.isVisible()) << id;
    EXPECT_EQ(form.dialog.result(), 1) << id;
  }
}

TEST(FormDialog, NothingIsCutOrCoveredInAnyFont) {
  const QFont usual = QApplication::font();
  for (const double factor : {0.7, 1.0, 1.7}) {
    QFont font = usual;
    font.setPointSizeF(usual.pointSizeF() * factor);
    QApplication::setFont(font);
    for (int id = 101; id <= 108; ++id) {
      OpenForm form(id);
      if (factor == 1.0) SavePicture(form.dialog, QString::number(id));
      QRegion taken;
      for (const FormState::Field& field : form.state.Fields()) {
        const QWidget& widget = Field(form.dialog, field.spec->id);
        EXPECT_TRUE(form.dialog.rect().contains(widget.geometry())) << id << ' ' << field.spec->text;
        if (field.spec->kind == FieldKind::kGroupBox) continue;
        const auto* const label = qobject_cast<const QLabel*>(&widget);
        if (label != nullptr || qobject_cast<const QRadioButton*>(&widget) != nullptr) {
          EXPECT_LE(widget.sizeHint().width(), widget.width()) << id << ' ' << field.spec->text;
        }
        const QRect shown = label == nullptr ? widget.geometry() : QRect(widget.pos(), label->sizeHint());
        EXPECT_FALSE(taken.intersects(shown)) << id << ' ' << field.spec->text;
        taken += shown;
      }
    }
  }
  QApplication::setFont(usual);
}

TEST(FormDialog, EveryRadioButtonHasItsNumber) {
  OpenForm form(103);
  int number = 0;
  for (const int id : {1006, 1007, 1008, 1009, 1010, 1011, 1022, 1031, 1035}) {
    ClickField(form.dialog, id);
    EXPECT_EQ(form.state.ChosenRadio(1006), ++number);
  }
}

TEST(FormDialog, ABadNumberKeepsTheFocus) {
  struct Case {
    int form;
    int field;
    const char* text;
    bool is_refused;
  };
  const std::vector<Case> cases = {{104, 1014, "0.001", false}, {104, 1014, "5.0001", true}, {104, 1014, "0,05", true},
                                   {104, 1014, "", true},       {104, 1014, "5e-2", false},  {108, 1030, "-7.5", false},
                                   {108, 1030, "", false},      {108, 1030, "x", true},      {108, 1019, "6", true},
                                   {108, 1019, "+3", false},    {108, 1019, "1-", true},     {108, 1014, "0.02", false},
                                   {106, 1019, "-4", false},    {106, 1019, "", false}};
  for (const Case& c : cases) {
    OpenForm form(c.form);
    TypeInto(form.dialog, c.field, c.text);
    const std::string before(form.state.Text(c.field));
    form.Key(Qt::Key_Tab);
    EXPECT_EQ(form.FocusedId() == c.field, c.is_refused) << c.text;
    EXPECT_EQ(form.beeps, c.is_refused ? 1 : 0) << c.text;
    EXPECT_EQ(form.state.Text(c.field), c.is_refused ? before : c.text);
    if (!c.is_refused) continue;
    EXPECT_EQ(Edit(form.dialog, c.field).selectedText(), c.text);
    form.Key(Qt::Key_Return);
    ClickField(form.dialog, 1015);
    ClickField(form.dialog, 1);
    EXPECT_TRUE(form.dialog.isVisible());
    EXPECT_FALSE(form.state.IsSet(1015)) << "a click elsewhere must not count";
    EXPECT_EQ(form.beeps, 4) << c.text;
    form.dialog.EndAsItStands();
    EXPECT_EQ(form.state.Text(c.field), before) << "closing takes the last valid text";
  }
}

TEST(FormDialog, AFieldThatNobodyTouchedKeepsItsStoredValue) {
  FormState state(*FindForm(104));
  state.PutReal(1013, 1.54059997F, RealFormat{8, 5});
  state.PutReal(1014, 7.0F);
  FormDialog dialog(
      state, [] {}, nullptr);
  dialog.show();
  EXPECT_EQ(Edit(dialog, 1013).text(), "1.54060");
  EXPECT_EQ(Edit(dialog, 1014).text(), "0.050") << "a put beyond the range is not taken";
  EXPECT_EQ(Edit(dialog, 1014).toolTip(), "0.001 to 5");
  for (int i = 0; i < 4; ++i) QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
  ClickField(dialog, 1);
  EXPECT_EQ(state.Real(1013), 1.54059997F);
}

TEST(FormDialog, IntegerFieldsTakeDigitsAndSignsOnly) {
  OpenForm form(106);
  TypeInto(form.dialog, 1020, "1a2.3 -");
  EXPECT_EQ(Edit(form.dialog, 1020).text(), "123-");
  EXPECT_EQ(form.beeps, 3);
  TypeInto(form.dialog, 1020, "123456789012");
  EXPECT_EQ(Edit(form.dialog, 1020).text(), "12345678901");
  EXPECT_EQ(form.beeps, 4);
  TypeInto(form.dialog, 1020, "-1");
  for (int i = 0; i < 3; ++i) form.Key(Qt::Key_Up);
  form.Key(Qt::Key_Return);
  EXPECT_EQ(form.state.Integer(1020), 2);
}

TEST(FormDialog, OnlyAFormWithExitCanBeEscapedFrom) {
  OpenForm options(103);
  options.Key(Qt::Key_Escape);
  EXPECT_EQ(options.dialog.result(), 2);
  EXPECT_FALSE(options.dialog.isVisible());
  OpenForm job(102);
  job.Key(Qt::Key_Escape);
  job.dialog.close();
  EXPECT_TRUE(job.dialog.isVisible());
  QTest::keyClicks(job.dialog.focusWidget(), "abc");
  EXPECT_EQ(job.state.Text(1005), "abc") << "the proposed name is selected, so that typing replaces it";
}

}  // namespace
}  // namespace talven::test
