// Curves that are drawn fast, all of a plot at once, by the strokes that are in sight.
#pragma once

#include <qcustomplot.h>

namespace talven {

/// A curve of a plot that has one ColumnPicture. With smooth edges, and in a vector picture, it is drawn as any other.
class ColumnGraph : public QCPGraph {
 public:
  using QCPGraph::QCPGraph;

 protected:
  void draw(QCPPainter* painter) override;
};

/// On a screen Qt draws a line of one pixel point by point, which many noisy curves cannot wait for. This draws those
/// of a plot's ColumnGraphs that have no smooth edges, below all other curves.
class ColumnPicture : public QCPLayerable {
  Q_OBJECT

 public:
  explicit ColumnPicture(QCustomPlot& plot);

 protected:
  void applyDefaultAntialiasingHint(QCPPainter* painter) const override;
  void draw(QCPPainter* painter) override;
  QRect clipRect() const override;
};

}  // namespace talven
