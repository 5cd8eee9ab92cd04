// A program that the user waits for, and the window of what it prints.
#pragma once

#include <QDialog>
#include <QProcess>
#include <optional>

#include "ui/Process.h"

class QPlainTextEdit;

namespace talven {

/// Shows what a program prints while it runs. It can't be closed, and blocks the windows of this program, which stay
/// painted.
class CommandWindow : public QDialog {
 public:
  CommandWindow(const Command& command, QWidget* parent);

  /// Runs the program to its end, with no input, and gives its exit code (128 and more after a signal); nothing if it
  /// could not be started.
  std::optional<int> Run(bool is_hidden);
  /// Escape and the close button of the frame do nothing.
  void reject() override {}

 private:
  void ShowOutput();

  Command command_;
  QPlainTextEdit* output_;
  QProcess process_;
};

}  // namespace talven
