#include "ui/plot/ColumnGraph.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace talven {
namespace {

/// Strokes of one pixel's width, gathered from left to right.
class Columns {
 public:
  Columns(QCPPainter& painter, const QRect& view) : painter_(painter), brush_(painter.pen().color()), view_(view) {}
  ~Columns() { Flush(); }
  Columns(const Columns&) = delete;
  Columns& operator=(const Columns&) = delete;

  /// The way from one column to another is shared out among those between.
  void AddLine(QPointF from, QPointF to) {
    if (to.x() < from.x()) std::swap(from, to);
    const double first = std::floor(from.x());
    const double count = std::floor(to.x()) - first + 1.0;
    const double step = (to.y() - from.y()) / count;
    const double begin = std::max<double>(first, view_.left());
    const double end = std::min<double>(first + count, view_.right() + 1.0);
    for (double column = begin; column < end; ++column) {
      const double top = from.y() + step * (column - first);
      Add(column, top, top + step);
    }
  }

 private:
  static constexpr double kFar = 1e9;

  void Add(double column, double from, double to) {
    if (column != column_) Flush();
    column_ = column;
    top_ = std::min({top_, from, to});
    bottom_ = std::max({bottom_, from, to});
  }

  void Flush() {
    const double top = std::max<double>(std::floor(top_), view_.top() - 1.0);
    const double bottom = std::min<double>(std::floor(bottom_) + 1.0, view_.bottom() + 2.0);
    if (bottom > top) painter_.fillRect(QRectF(column_, top, 1.0, bottom - top), brush_);
    top_ = kFar;
    bottom_ = -kFar;
  }

  QCPPainter& painter_;
  QBrush brush_;
  QRect view_;
  double column_ = 0.0;
  double top_ = kFar;
  double bottom_ = -kFar;
};

}  // namespace

void ColumnGraph::draw(QCPPainter* painter) {
  if (antialiased() || painter->modes().testFlag(QCPPainter::pmVectorized)) return QCPGraph::draw(painter);
  QVector<QPointF> points;
  getLines(&points, QCPDataRange(0, dataCount()));
  applyDefaultAntialiasingHint(painter);
  painter->setPen(pen());
  Columns columns(*painter, clipRect());
  for (qsizetype i = 1; i < points.size(); ++i) columns.AddLine(points[i - 1], points[i]);
}

}  // namespace talven
