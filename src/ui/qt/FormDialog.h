// One form on the screen: widgets made from its catalogue entry, which edit its FormState.
#pragma once

#include <QDialog>
#include <functional>
#include <set>

#include "ui/forms/FormState.h"
#include "ui/qt/DialogUnits.h"
#include "ui/qt/RefusalNote.h"

class QLineEdit;

namespace talven {

/// A form of fixed size whose fields have their ids as object names. Tab goes through them as they are read, row by
/// row, and stays in the form; arrow keys move in a radio group as the eye does. Its result is the id of the button
/// that ended it. What the user enters is in the form's state as soon as it is valid; a field that nobody touched keeps
/// its stored value.
///
/// A numeric field whose text can't stay keeps the focus: leaving it for another field, or pressing a button, beeps,
/// selects its text and says beside it what is wanted.
class FormDialog : public QDialog {
  Q_OBJECT

 public:
  /// `form` has to outlive the dialog. `beep` is called for each refusal. With a parent the form lies inside that
  /// widget and its notes may reach over the form's edge; without one it is a window.
  FormDialog(FormState& form, std::function<void()> beep, QWidget* parent);
  ~FormDialog() override;

  const FormSpec& Spec() const { return form_.Spec(); }
  bool HasExit() const { return form_.Find(kExitButton) != nullptr; }
  /// Offers texts to a field while it is typed into.
  void OfferTexts(int id, const QStringList& texts);
  /// Takes the largest letters, up to its own, with which it is seen whole in `room`, or else as wide as that.
  void FitInto(QSize room);
  /// Puts the focus where the form begins, or back to where it was.
  void TakeFocus();
  /// Fills a field and presses `OK`.
  void FillAndEnd(int id, const QString& text);
  /// Ends the form with what it holds, by `EXIT` where it has that button, else by `OK`.
  void EndAsItStands();

  /// Escape and the close button of the frame: `EXIT`, or nothing on a form without it.
  void reject() override;

 signals:
  /// A refused field is to be seen, wherever the form is scrolled to.
  void FieldToBeSeen(QWidget* field);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  void ConnectField(const FormState::Field& field);
  void ConnectNumber(int id, QLineEdit* edit);
  void GroupRadios(const FieldSpec& first);
  /// The font's units, enlarged where a caption or a frame would not fit.
  DialogUnits FittingUnits() const;
  void PlaceFields();
  /// Writes with letters of so much of their own size.
  void SetScale(int percent);
  /// Fields that the values of others make useless look so.
  void ShowUnused();

  QWidget* Widget(int id) const;
  /// The field that a widget is or lies in.
  const FormState::Field* FieldOf(const QWidget* widget) const;
  QLineEdit* EditOf(const FormState::Field& field) const;
  /// The fields that Tab goes to, in reading order.
  std::vector<QWidget*> TabStops() const;
  /// True if the field can stay as it is.
  bool IsValid(const FormState::Field& field) const;
  /// Takes over what stands in a field; if it is not valid, beeps, goes back to it and says so.
  bool Leave(const FormState::Field& field);
  void TakeBackRefusal();
  /// True for a key that was the form's to answer: Enter on a round or square button, an arrow in a radio group.
  bool AnswersKey(QObject* watched, QEvent* event);
  bool MovesInGroup(const FormState::Field& field, int key);
  void FollowFocus(const QWidget* from, const QWidget* to);
  void Press(int button);

  FormState& form_;
  QFont own_font_;
  std::function<void()> beep_;
  RefusalNote* note_;
  /// Numeric fields that the user has changed.
  std::set<int> touched_;
  /// Id of the field that had the focus last.
  int focused_ = 0;
  bool going_back_ = false;
};

}  // namespace talven
