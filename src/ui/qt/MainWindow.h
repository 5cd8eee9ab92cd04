// The main window: a text pane, and the wish to leave.
#pragma once

#include <QWidget>

#include "ui/qt/PaneWidget.h"

namespace talven {

/// Closing it only asks for the end: the program comes to its end by the way of `EXIT`, which closes the window. A
/// disabled window takes no such wish.
class MainWindow : public QWidget {
  Q_OBJECT

 public:
  /// A size below 1 and a negative position are left to the font and the window system.
  MainWindow(const QString& title, QRect place);

  PaneWidget& Pane() { return *pane_; }

 signals:
  void LeaveAsked();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  PaneWidget* pane_;
};

}  // namespace talven
