#include "ui/qt/Overlay.h"

#include <QEvent>
#include <QVBoxLayout>
#include <algorithm>

namespace talven {
namespace {

constexpr int kMargin = 8;

}  // namespace

Overlay::Overlay(QWidget* content, QWidget* host) : QFrame(host), content_(content) {
  setObjectName("overlay");
  setFrameShape(QFrame::Panel);
  setFrameShadow(QFrame::Raised);
  setLineWidth(2);
  setAutoFillBackground(true);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(content);
  host->installEventFilter(this);
  Centre();
  show();
  raise();
}

Overlay::~Overlay() {
  // The content belongs to whoever made it.
  if (content_) content_->setParent(nullptr);
}

bool Overlay::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) Centre();
  return QFrame::eventFilter(watched, event);
}

void Overlay::Centre() {
  const QSize room = parentWidget()->size() - QSize(2 * kMargin, 2 * kMargin);
  int width = std::min(sizeHint().width(), room.width());
  int height = layout()->hasHeightForWidth() ? layout()->totalHeightForWidth(width) : sizeHint().height();
  height = std::min(height, room.height());
  setGeometry(kMargin + (room.width() - width) / 2, kMargin + (room.height() - height) / 2, width, height);
}

void PlaceOver(QWidget& window, const QWidget& part) {
  const QRect place(part.mapToGlobal(QPoint()), part.size());
  const QRect whole(part.window()->mapToGlobal(QPoint()), part.window()->size());
  QRect own(QPoint(), window.size().boundedTo(place.size()).expandedTo(window.minimumSizeHint()));
  own.moveCenter(place.center());
  own.moveLeft(std::max(whole.left(), std::min(own.left(), whole.right() + 1 - own.width())));
  own.moveTop(std::max(whole.top(), std::min(own.top(), whole.bottom() + 1 - own.height())));
  window.setGeometry(own);
}

}  // namespace talven
