#include "support/qt/UserScript.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QTest>

#include "ui/qt/DesktopSession.h"

namespace talven::test {

UserScript::UserScript() {
  QObject::connect(&timer_, &QTimer::timeout, [this] { LookForDialog(); });
  timer_.start(5);
}

UserScript& UserScript::Then(Step step) {
  steps_.push_back(std::move(step));
  return *this;
}

UserScript& UserScript::ThenPress(Qt::Key key) {
  return Then([key](QDialog& dialog) { QTest::keyClick(&dialog, key); });
}

void UserScript::LookForDialog() {
  for (QWidget* const widget : QApplication::topLevelWidgets()) {
    auto* const dialog = qobject_cast<QDialog*>(widget);
    if (dialog == nullptr || !dialog->isVisible() || dialog == seen_ || steps_.empty()) continue;
    if (dialog->objectName() == "101") continue;
    seen_ = dialog;
    EXPECT_TRUE(QTest::qWaitForWindowActive(dialog)) << dialog->objectName().toStdString();
    SavePicture(*dialog, dialog->objectName());
    const Step step = std::move(steps_.front());
    steps_.pop_front();
    step(*dialog);
    return;
  }
}

QWidget& Field(const QWidget& form, int id) {
  return *form.findChild<QWidget*>(QString::number(id));
}

QLineEdit& Edit(const QWidget& form, int id) {
  QWidget& field = Field(form, id);
  auto* const edit = qobject_cast<QLineEdit*>(&field);
  return edit != nullptr ? *edit : *field.findChild<QLineEdit*>();
}

void ClickField(const QWidget& form, int id) {
  QWidget& field = Field(form, id);
  QTest::mouseClick(&field, Qt::LeftButton, {}, QPoint(8, field.height() / 2));
}

void TypeInto(const QWidget& form, int id, const char* text) {
  QLineEdit& edit = Edit(form, id);
  QTest::mouseClick(&edit, Qt::LeftButton, {}, QPoint(8, edit.height() / 2));
  QTest::keySequence(&edit, QKeySequence::SelectAll);
  if (*text == '\0') QTest::keyClick(&edit, Qt::Key_Delete);
  QTest::keyClicks(&edit, text);
}

void AcceptName(QDialog& selector, const QString& name) {
  auto* const edit = selector.findChild<QLineEdit*>("fileNameEdit");
  if (!name.isEmpty()) edit->setText(name);
  QTest::keyClick(edit, Qt::Key_Return);
}

void SavePicture(QWidget& window, const QString& name) {
  const QString folder = qEnvironmentVariable("TALVEN_SCREENSHOTS");
  const QString prefix = name.toInt() != 0 ? "form-" : "";
  if (!folder.isEmpty()) window.grab().save(QDir(folder).filePath(prefix + name + ".png"));
}

}  // namespace talven::test

/// Runs the tests with a connection to the window system: none that can be seen, unless QT_QPA_PLATFORM says otherwise.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (testing::GTEST_FLAG(list_tests)) return RUN_ALL_TESTS();
  // A user with decimal commas, where the system has such a locale.
  qputenv("LC_ALL", "de_DE.UTF-8");
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const talven::DesktopSession session(argc, argv);
  return RUN_ALL_TESTS();
}
