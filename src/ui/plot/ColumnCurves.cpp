#include "ui/plot/ColumnCurves.h"

#include "ui/plot/model/ColumnStrokes.h"

namespace talven {
namespace {

constexpr const char* kLayer = "columns";

QString MakeLayer(QCustomPlot& plot) {
  plot.addLayer(kLayer, plot.layer("main"), QCustomPlot::limBelow);
  return kLayer;
}

bool IsDrawnAsAnyOther(const QCPGraph& graph, const QCPPainter& painter) {
  return graph.antialiased() || painter.modes().testFlag(QCPPainter::pmVectorized);
}

void AddGraph(std::size_t index, const QCPGraph& graph, QPoint origin, ColumnStrokes& strokes) {
  QPointF before;
  bool is_first = true;
  for (const QCPGraphData& point : *graph.data()) {
    const QPointF place = graph.coordsToPixels(point.key, point.value) - QPointF(origin);
    if (!is_first) strokes.AddLine(index, before.x(), before.y(), place.x(), place.y());
    before = place;
    is_first = false;
  }
}

}  // namespace

void ColumnGraph::draw(QCPPainter* painter) {
  if (IsDrawnAsAnyOther(*this, *painter)) QCPGraph::draw(painter);
}

ColumnPicture::ColumnPicture(QCustomPlot& plot) : QCPLayerable(&plot, MakeLayer(plot)) {}

void ColumnPicture::applyDefaultAntialiasingHint(QCPPainter* painter) const {
  painter->setAntialiasing(false);
}

QRect ColumnPicture::clipRect() const {
  return parentPlot()->axisRect()->rect();
}

void ColumnPicture::draw(QCPPainter* painter) {
  std::vector<QCPGraph*> graphs;
  for (int i = 0; i < parentPlot()->graphCount(); ++i) {
    QCPGraph* const graph = parentPlot()->graph(i);
    if (!IsDrawnAsAnyOther(*graph, *painter)) graphs.push_back(graph);
  }
  if (graphs.empty()) return;
  const QRect view = clipRect();
  ColumnStrokes strokes(graphs.size(), view.width(), view.height());
  for (std::size_t i = 0; i < graphs.size(); ++i) AddGraph(i, *graphs[i], view.topLeft(), strokes);
  for (const Stroke& stroke : strokes.InSight()) {
    painter->fillRect(view.left() + stroke.column, view.top() + stroke.top, 1, stroke.bottom - stroke.top,
                      graphs[stroke.curve]->pen().color());
  }
}

}  // namespace talven
