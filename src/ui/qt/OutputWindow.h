// A program that the session waits for: what it prints, for how long it runs, and a button that ends it.
#pragma once

#include <QElapsedTimer>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QTimer>
#include <QWidget>
#include <optional>

#include "ui/Process.h"

namespace talven {

/// What its text is called where that stands in the main window.
inline constexpr const char* kOutputTitle = "Output";

/// A window of its own, which outlasts the main window. It can't be closed while the program runs.
class OutputWindow : public QWidget {
  Q_OBJECT

 public:
  OutputWindow();

  /// Runs a program to its end, with no input, and gives its exit code (128 and more after a signal); nothing if it
  /// could not be started. `title` tells what it does, as "Refining ABC". Shows itself unless `is_hidden`.
  std::optional<int> Run(const Command& command, const QString& title, bool is_hidden);
  bool WasStopped() const { return was_stopped_; }

  /// Begins anew without a program, under a title.
  void Begin(const QString& title);
  /// Adds a line of the window's own below what was printed.
  void Remark(const QString& text);
  /// What was printed, with the remarks.
  QString Text() const { return output_->toPlainText(); }
  /// Stays open until it is closed, whatever happens to the main window.
  void Keep();
  /// Comes up beside what is to be read: over a part of the main window.
  void PlaceOver(const QWidget& part);

 signals:
  void Closed();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  bool IsRunning() const { return process_.state() != QProcess::NotRunning; }
  void ShowOutput();
  void ShowHead();
  void StopOrClose();

  QLabel* head_;
  QPushButton* button_;
  QPlainTextEdit* output_;
  QProcess process_;
  QElapsedTimer clock_;
  QTimer tick_;
  QString title_;
  bool was_stopped_ = false;
};

}  // namespace talven
