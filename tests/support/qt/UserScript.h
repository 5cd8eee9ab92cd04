// A user in front of the desktop program: answers its dialogs with keys and clicks, one after the other.
#pragma once

#include <gtest/gtest.h>

#include <QDialog>
#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <deque>
#include <functional>

namespace talven::test {

/// What the user does with a dialog.
using Step = std::function<void(QDialog&)>;

/// Steps run inside the event loops of the program, each on the next dialog that comes up. All must have run at the
/// end.
class UserScript {
 public:
  explicit UserScript(std::deque<Step> steps);
  ~UserScript() { EXPECT_TRUE(steps_.empty()) << steps_.size() << " dialogs did not come"; }

 private:
  void LookForDialog();

  QTimer timer_;
  QPointer<QDialog> seen_;
  std::deque<Step> steps_;
};

/// The forms and boxes that wait for an answer, in windows of their own or inside of one.
QList<QDialog*> ShownDialogs();

Step Press(Qt::Key key);
/// The field of a form by its id; the text part of a field with arrows.
QWidget& Field(const QWidget& form, int id);
QLineEdit& Edit(const QWidget& form, int id);
void Click(QWidget& widget);
/// Replaces a field's text as a user does: goes there, selects everything and types.
void TypeInto(const QWidget& form, int id, const char* text);
/// Writes a name into a file selector and accepts it; without a name, accepts the one that stands there.
void AcceptName(QDialog& selector, const QString& name = {});

}  // namespace talven::test
