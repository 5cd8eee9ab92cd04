// A curve that is drawn fast: one upright bar for each column of the screen.
#pragma once

#include <qcustomplot.h>

namespace talven {

/// On a screen Qt draws a line of one pixel point by point, which many noisy curves cannot wait for. A curve with as
/// many points as columns is nothing but upright strokes, and those are filled at once. In a vector picture, and while
/// the curve has smooth edges, it is drawn as any other.
class ColumnGraph : public QCPGraph {
 public:
  using QCPGraph::QCPGraph;

 protected:
  void draw(QCPPainter* painter) override;
};

}  // namespace talven
