// Message boxes.
#pragma once

#include <QMessageBox>
#include <vector>

#include "ui/Toolkit.h"

namespace talven {

/// A message box with the type, icon and default button of a message. Escape presses its last button.
class MessageDialog : public QMessageBox {
 public:
  MessageDialog(const Message& message, QWidget* parent);

  /// The answer of the button that was pressed, or of the last one if the box was ended without.
  int Answer() const;

 private:
  std::vector<MessageButton> answers_;
  std::vector<QAbstractButton*> buttons_;
};

}  // namespace talven
