// What is drawn over the curves: ticks of the reflections, peaks, cursor, zoom band.
#pragma once

#include <qcustomplot.h>

namespace talven {

class PlotCanvas;

/// On a layer of its own, so that a moving cursor draws no curve again.
class PlotMarks : public QCPLayerable {
  Q_OBJECT

 public:
  static constexpr const char* kLayer = "marks";

  explicit PlotMarks(PlotCanvas& canvas);

  /// Pixels below the curves that the ticks of the reflections and their labels need; 0 where there are none.
  int StripHeight() const;

 protected:
  void applyDefaultAntialiasingHint(QCPPainter* painter) const override;
  void draw(QCPPainter* painter) override;
  QRect clipRect() const override;

 private:
  void DrawSticks(QCPPainter& painter) const;
  void DrawReflections(QCPPainter& painter) const;
  void DrawPeaks(QCPPainter& painter) const;
  void DrawCursor(QCPPainter& painter) const;
  void DrawBand(QCPPainter& painter) const;

  PlotCanvas& canvas_;
};

}  // namespace talven
