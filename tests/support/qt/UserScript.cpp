#include "support/qt/UserScript.h"

#include <QApplication>

#include "ui/qt/DesktopSession.h"

namespace talven::test {

UserScript::UserScript(std::deque<Step> steps) : steps_(std::move(steps)) {
  QObject::connect(&timer_, &QTimer::timeout, [this] { LookForDialog(); });
  timer_.start(5);
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
    return step(*dialog);
  }
}

Step Press(Qt::Key key) {
  return [key](QDialog& dialog) { QTest::keyClick(&dialog, key); };
}

QWidget& Field(const QWidget& form, int id) { return *form.findChild<QWidget*>(QString::number(id)); }

QLineEdit& Edit(const QWidget& form, int id) {
  auto* const edit = qobject_cast<QLineEdit*>(&Field(form, id));
  return edit != nullptr ? *edit : *Field(form, id).findChild<QLineEdit*>();
}

void Click(QWidget& widget) { QTest::mouseClick(&widget, Qt::LeftButton, {}, QPoint(8, widget.height() / 2)); }

void TypeInto(const QWidget& form, int id, const char* text) {
  Click(Edit(form, id));
  QTest::keySequence(&Edit(form, id), QKeySequence::SelectAll);
  if (*text == '\0') QTest::keyClick(&Edit(form, id), Qt::Key_Delete);
  QTest::keyClicks(&Edit(form, id), text);
}

void AcceptName(QDialog& selector, const QString& name) {
  auto* const edit = selector.findChild<QLineEdit*>("fileNameEdit");
  if (!name.isEmpty()) edit->setText(name);
  QTest::keyClick(edit, Qt::Key_Return);
}

void SavePicture(QWidget& window, const QString& name) {
  const QString folder = qEnvironmentVariable("TALVEN_SCREENSHOTS");
  const QString prefix = name.toInt() != 0 ? "/form-" : "/";
  if (!folder.isEmpty()) window.grab().save(folder + prefix + name + ".png");
}

}  // namespace talven::test

/// Runs the tests with a connection to the window system: none that can be seen, unless QT_QPA_PLATFORM says otherwise.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (testing::GTEST_FLAG(list_tests)) return RUN_ALL_TESTS();
  // A user with decimal commas, where the system has such a locale.
  qputenv("LC_ALL", "de_DE.UTF-8");
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const talven::DesktopSession session(argv);
  return RUN_ALL_TESTS();
}
