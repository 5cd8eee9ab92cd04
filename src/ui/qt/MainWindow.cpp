#include "ui/qt/MainWindow.h"

#include <QCloseEvent>
#include <QScreen>
#include <QVBoxLayout>

namespace talven {

MainWindow::MainWindow(const QString& title, QRect place) : pane_(new PaneWidget(this)) {
  setWindowTitle(title);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(pane_);
  QSize size = pane_->sizeHint();
  if (place.width() >= 1) size.setWidth(place.width());
  if (place.height() >= 1) size.setHeight(place.height());
  resize(size.boundedTo(screen()->availableSize() * 0.9));
  if (place.x() >= 0 && place.y() >= 0) move(place.topLeft());
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (isEnabled()) emit LeaveAsked();
}

}  // namespace talven
