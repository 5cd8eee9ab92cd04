// The pane, scrolled where the window is smaller than its page.
#pragma once

#include <QScrollArea>

#include "ui/qt/PaneWidget.h"

namespace talven {

/// Keeps the last line in sight. The page fills the area where there is room.
class PanePage : public QScrollArea {
 public:
  explicit PanePage(QWidget* parent = nullptr);

  PaneWidget& Pane() { return *pane_; }
  void ShowLastLine();

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  PaneWidget* pane_;
};

}  // namespace talven
