#include "support/qt/UserScript.h"

#include <QApplication>

namespace talven::test {

UserScript::UserScript(std::deque<Step> steps) : steps_(std::move(steps)) {
  QObject::connect(&timer_, &QTimer::timeout, [this] { LookForDialog(); });
  timer_.start(5);
}

QList<QDialog*> ShownDialogs() {
  QList<QDialog*> dialogs;
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (auto* const dialog = qobject_cast<QDialog*>(window)) dialogs += dialog;
    dialogs += window->findChildren<QDialog*>();
  }
  // The banner takes no answer.
  dialogs.removeIf([](const QDialog* dialog) { return !dialog->isVisible() || dialog->objectName() == "101"; });
  return dialogs;
}

void UserScript::LookForDialog() {
  for (QDialog* const dialog : ShownDialogs()) {
    if (dialog == seen_ || steps_.empty()) continue;
    seen_ = dialog;
    EXPECT_TRUE(QTest::qWaitForWindowActive(dialog->window())) << dialog->objectName().toStdString();
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

}  // namespace talven::test
