#include "ui/qt/AppIcon.h"

#include <QPainter>
#include <QPixmap>
#include <array>

namespace talven {
namespace {

constexpr double kFigureSize = 64.0;

QPixmap DrawIcon(int size) {
  static constexpr std::array kPattern = {
      QPointF(8, 51),  QPointF(15, 50), QPointF(19, 33), QPointF(22, 50), QPointF(27, 50),
      QPointF(31, 12), QPointF(35, 50), QPointF(40, 50), QPointF(43, 25), QPointF(46, 50),
      QPointF(50, 50), QPointF(52, 41), QPointF(54, 50), QPointF(57, 51),
  };
  QPixmap pixmap(size, size);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(size / kFigureSize, size / kFigureSize);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0x1f, 0x3a, 0x5f));
  painter.drawRoundedRect(QRectF(2, 2, 60, 60), 11, 11);
  painter.setPen(QPen(QColor(0xf4, 0xd3, 0x5e), 3.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(kPattern.data(), static_cast<int>(kPattern.size()));
  return pixmap;
}

}  // namespace

QIcon AppIcon() {
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 128, 256}) icon.addPixmap(DrawIcon(size));
  return icon;
}

}  // namespace talven
