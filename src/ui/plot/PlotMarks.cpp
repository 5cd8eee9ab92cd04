#include "ui/plot/PlotMarks.h"

#include <algorithm>
#include <cmath>

#include "ui/plot/PlotCanvas.h"
#include "ui/plot/model/ReflectionTicks.h"

namespace talven {
namespace {

constexpr double kTickLength = 9.0;
constexpr double kLabelGap = 3.0;
constexpr int kLongestLabel = 90;
constexpr double kMarkSize = 4.0;
/// The strip of calculated lines, pixels.
constexpr int kStickStrip = 80;

void MakeLayer(PlotCanvas& canvas) {
  canvas.addLayer(PlotMarks::kLayer, canvas.layer("main"), QCustomPlot::limAbove);
  canvas.layer(PlotMarks::kLayer)->setMode(QCPLayer::lmBuffered);
}

}  // namespace

PlotMarks::PlotMarks(PlotCanvas& canvas) : QCPLayerable(&canvas, (MakeLayer(canvas), kLayer)), canvas_(canvas) {}

void PlotMarks::applyDefaultAntialiasingHint(QCPPainter* painter) const {
  painter->setAntialiasing(true);
}

QRect PlotMarks::clipRect() const {
  return canvas_.axisRect()->rect().adjusted(0, 0, 0, StripHeight());
}

int PlotMarks::StripHeight() const {
  if (!canvas_.Model().Sticks().sticks.empty()) return kStickStrip + QFontMetrics(canvas_.font()).height();
  const auto& ticks = canvas_.Model().Ticks();
  if (ticks.empty()) return 0;
  std::size_t longest = 0;
  for (const ReflectionTick& tick : ticks) longest = std::max(longest, tick.label.size());
  const QFontMetrics metrics(canvas_.font());
  const int label = metrics.horizontalAdvance(QString(static_cast<qsizetype>(longest), QLatin1Char('0')));
  return std::min(label, kLongestLabel) + static_cast<int>(kTickLength + 3.0 * kLabelGap);
}

void PlotMarks::draw(QCPPainter* painter) {
  if (canvas_.Model().Sticks().sticks.empty()) {
    DrawReflections(*painter);
  } else {
    DrawSticks(*painter);
  }
  painter->setClipRect(canvas_.axisRect()->rect());
  if (canvas_.ArePeaksShown()) DrawPeaks(*painter);
  DrawCursor(*painter);
  DrawBand(*painter);
}

void PlotMarks::DrawSticks(QCPPainter& painter) const {
  const QRect rect = canvas_.axisRect()->rect();
  const double text_height = QFontMetricsF(canvas_.font()).height();
  const double foot = rect.bottom() + StripHeight();
  const double full = StripHeight() - text_height - 2.0 * kLabelGap;
  painter.setFont(canvas_.font());
  painter.setPen(QPen(canvas_.Colours().reflections, 1.0));
  painter.drawText(QRectF(rect.left() + kLabelGap, rect.bottom() + 1.0, rect.width() - kLabelGap, text_height),
                   Qt::AlignLeft | Qt::AlignVCenter, QString::fromStdString(canvas_.Model().Sticks().title));
  for (const Stick& stick : canvas_.Model().Sticks().sticks) {
    const double x = canvas_.PixelOf(stick.two_theta);
    if (x < rect.left() || x > rect.right()) continue;
    painter.drawLine(QPointF(x, foot), QPointF(x, foot - std::max(stick.share * full, 1.0)));
  }
}

void PlotMarks::DrawReflections(QCPPainter& painter) const {
  const QRect rect = canvas_.axisRect()->rect();
  const double top = rect.bottom() + kLabelGap;
  painter.setFont(canvas_.font());
  painter.setPen(QPen(canvas_.Colours().reflections, 1.0));
  const QFontMetricsF metrics(canvas_.font());
  // Ticks that would fall on the pixel of another are drawn once; a label stands where the last one leaves room.
  double last_tick = -1e9;
  double last_label = -1e9;
  const auto draw_tick = [&](const ReflectionTick& tick) {
    const double x = canvas_.PixelOf(tick.two_theta);
    if (x < rect.left() || x > rect.right() || std::abs(x - last_tick) < 0.5) return;
    last_tick = x;
    painter.drawLine(QPointF(x, top), QPointF(x, top + kTickLength));
    if (std::abs(x - last_label) < metrics.height()) return;
    last_label = x;
    painter.save();
    painter.translate(x + metrics.ascent() / 2.0 - 1.0, top + kTickLength + kLabelGap);
    painter.rotate(-90.0);
    const QString label = QString::fromStdString(tick.label);
    painter.drawText(QPointF(-metrics.horizontalAdvance(label), 0.0), label);
    painter.restore();
  };
  for (const ReflectionTick& tick : canvas_.Model().Ticks()) draw_tick(tick);
}

void PlotMarks::DrawPeaks(QCPPainter& painter) const {
  const PlotModel& model = canvas_.Model();
  if (model.IsEmpty()) return;
  const Pattern& pattern = model.Series().front().pattern;
  for (const MarkedPeak& mark : canvas_.Picker().Marks()) {
    const std::size_t point = NearestIndex(pattern.two_theta, mark.peak.two_theta);
    const double x = canvas_.PixelOf(mark.peak.two_theta);
    const double top = canvas_.yAxis->coordToPixel(model.PlaceOf(pattern.counts[point]));
    // A mark is seen wherever its peak is.
    const double highest = canvas_.axisRect()->top() + 2.0 * kMarkSize + 1.0;
    const double tip = top < canvas_.axisRect()->top() ? top : std::max(top - kLabelGap, highest);
    const PlotColours& colours = canvas_.Colours();
    const bool is_companion = mark.origin == PeakOrigin::kAlpha2;
    const QColor colour = is_companion                         ? colours.companion
                          : mark.origin == PeakOrigin::kByHand ? colours.peak_by_hand
                                                               : colours.peak;
    painter.setPen(QPen(colour, 1.0));
    painter.setBrush(is_companion ? QBrush(Qt::NoBrush) : QBrush(colour));
    const QPolygonF arrow{QPointF(x, tip), QPointF(x - kMarkSize, tip - 2.0 * kMarkSize),
                          QPointF(x + kMarkSize, tip - 2.0 * kMarkSize)};
    painter.drawPolygon(arrow);
  }
}

void PlotMarks::DrawCursor(QCPPainter& painter) const {
  if (!canvas_.Cursor()) return;
  const double x = canvas_.PixelOf(*canvas_.Cursor());
  const QRect rect = canvas_.axisRect()->rect();
  painter.setPen(QPen(canvas_.Colours().cursor, 0, Qt::DashLine));
  painter.drawLine(QPointF(x, rect.top()), QPointF(x, rect.bottom()));
}

void PlotMarks::DrawBand(QCPPainter& painter) const {
  if (canvas_.Band().isNull()) return;
  QColor fill = canvas_.Colours().Curve(0);
  painter.setPen(QPen(fill, 0));
  fill.setAlpha(40);
  painter.setBrush(fill);
  painter.drawRect(canvas_.Band());
}

}  // namespace talven
