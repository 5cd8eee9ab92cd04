#include "ui/qt/PanePage.h"

#include <QScrollBar>

namespace talven {

PanePage::PanePage(QWidget* parent) : QScrollArea(parent), pane_(new PaneWidget) {
  setObjectName("page");
  setAccessibleName("Page of progress lines");
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setWidgetResizable(true);
  setBackgroundRole(QPalette::Base);
  setWidget(pane_);
}

void PanePage::ShowLastLine() {
  const QRect last = pane_->LastLine();
  if (last.isEmpty()) return verticalScrollBar()->setValue(0);
  const int above = last.top() - verticalScrollBar()->value();
  const int below = last.bottom() + 1 - verticalScrollBar()->value() - viewport()->height();
  if (above < 0) verticalScrollBar()->setValue(last.top());
  if (below > 0) verticalScrollBar()->setValue(verticalScrollBar()->value() + below + 2);
}

void PanePage::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  const QSize easy = pane_->EasyPage();
  pane_->setMinimumSize(maximumViewportSize().width() < easy.width() ? pane_->SmallestPage() : easy);
  ShowLastLine();
}

}  // namespace talven
