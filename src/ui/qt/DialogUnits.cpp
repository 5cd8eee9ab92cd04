#include "ui/qt/DialogUnits.h"

#include <QFontMetricsF>

namespace talven {

QSize DialogUnits::Size(int width, int height) const {
  return {qRound(x * width), qRound(y * height)};
}

QRect DialogUnits::Place(const Geometry& geometry) const {
  return {QPoint(qRound(x * geometry.x), qRound(y * geometry.y)), Size(geometry.width, geometry.height)};
}

DialogUnits UnitsOf(const QFont& font) {
  const QString letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  const QFontMetricsF metrics(font);
  return {metrics.horizontalAdvance(letters) / static_cast<double>(letters.size()) / 4.0, metrics.height() / 8.0};
}

}  // namespace talven
