// One form on the screen: widgets made from its catalogue entry, which edit its FormState.
#pragma once

#include <QDialog>
#include <functional>
#include <set>

#include "ui/forms/FormState.h"
#include "ui/qt/DialogUnits.h"

class QLineEdit;

namespace talven {

/// A dialog of fixed size whose fields have their ids as object names and follow each other in table order. Its result
/// is the id of the button that ended it. What the user enters is in the form's state as soon as it is valid; a field
/// that nobody touched keeps its stored value.
///
/// A numeric field whose text can't stay keeps the focus: leaving it, or pressing a button, beeps and selects its text.
class FormDialog : public QDialog {
  Q_OBJECT

 public:
  /// `form` has to outlive the dialog. `beep` is called for each refusal.
  FormDialog(FormState& form, std::function<void()> beep, QWidget* parent);
  ~FormDialog() override;

  /// Ends the form with what it holds, by `EXIT` where it has that button, else by `OK`.
  void EndAsItStands();

  /// Escape and the close button of the frame: `EXIT`, or nothing on a form without it.
  void reject() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool HasExit() const { return form_.Find(kExitButton) != nullptr; }
  QWidget* MakeField(const FormState::Field& field);
  QWidget* MakeButton(const FieldSpec& spec);
  QWidget* MakeCheck(const FormState::Field& field);
  QWidget* MakeRadio(const FormState::Field& field);
  QWidget* MakeEdit(const FormState::Field& field);
  QWidget* MakeSpin(const FormState::Field& field);
  void SetUpNumber(const FormState::Field& field, QWidget* widget, QLineEdit* edit);
  void GroupRadios(const FieldSpec& first);
  /// The font's units, enlarged where a caption or a frame would not fit.
  DialogUnits FittingUnits() const;
  void PlaceFields();
  void FocusFirstField();

  QWidget* Widget(int id) const;
  /// The field that a widget is or lies in.
  const FormState::Field* FieldOf(const QWidget* widget) const;
  QLineEdit* EditOf(const FormState::Field& field) const;
  /// True if the field can stay as it is.
  bool IsValid(const FormState::Field& field) const;
  /// Takes over what stands in a field; if it is not valid, beeps and goes back to it.
  bool Leave(const FormState::Field& field);
  /// True for Enter on a round or square button, which some desktops take for a click on it.
  static bool PressesDefault(QObject* watched, QEvent* event);
  void FollowFocus(const QWidget* from, const QWidget* to);
  void Press(int button);

  FormState& form_;
  std::function<void()> beep_;
  /// Numeric fields that the user has changed.
  std::set<int> touched_;
  bool going_back_ = false;
};

}  // namespace talven
