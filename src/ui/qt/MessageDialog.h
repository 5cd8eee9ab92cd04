// Message boxes.
#pragma once

#include <QDialog>
#include <vector>

#include "ui/Toolkit.h"

class QPushButton;
class QTextEdit;

namespace talven {

/// A message box with the type, icon and default button of a message; a line may stand underneath. Escape presses its
/// last button. With a parent it lies inside that widget, without one it is a window.
class MessageDialog : public QDialog {
 public:
  MessageDialog(const Message& message, const QString& underneath, QWidget* parent);

  QString Text() const;
  /// The answer of the button that was pressed, or of the last one if the box was ended without.
  int Answer() const;
  /// Gives the focus to the default button.
  void TakeFocus();

 private:
  QWidget* MakeTexts(const QString& underneath);
  QWidget* MakeButtons(int default_button);

  QTextEdit* text_;
  std::vector<MessageButton> answers_;
  std::vector<QPushButton*> buttons_;
};

}  // namespace talven
