// A user in front of the desktop program: answers its dialogs with keys and clicks, one after the other.
#pragma once

#include <QDialog>
#include <QLineEdit>
#include <QPointer>
#include <QTimer>
#include <deque>
#include <functional>

namespace talven::test {

/// Steps run inside the event loops of the program, each on the next dialog that comes up.
class UserScript {
 public:
  using Step = std::function<void(QDialog&)>;

  UserScript();
  UserScript& Then(Step step);
  UserScript& ThenPress(Qt::Key key);
  /// True when every step has run.
  bool IsDone() const { return steps_.empty(); }

 private:
  void LookForDialog();

  QTimer timer_;
  QPointer<QDialog> seen_;
  std::deque<Step> steps_;
};

/// The field of a form by its id; the text part of a field with arrows.
QWidget& Field(const QWidget& form, int id);
QLineEdit& Edit(const QWidget& form, int id);
void ClickField(const QWidget& form, int id);
/// Replaces a field's text as a user does: goes there, selects everything and types.
void TypeInto(const QWidget& form, int id, const char* text);
/// Writes a name into a file selector and accepts it; without a name, accepts the one that stands there.
void AcceptName(QDialog& selector, const QString& name = {});
/// With TALVEN_SCREENSHOTS naming a folder, saves a picture of a window there.
void SavePicture(QWidget& window, const QString& name);

}  // namespace talven::test
