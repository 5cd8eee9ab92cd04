// Mouse and keys of the drawing.
#include <algorithm>
#include <cmath>
#include <utility>

#include "ui/plot/PlotCanvas.h"
#include "ui/plot/PlotMarks.h"
#include "ui/plot/model/ReflectionTicks.h"

namespace talven {
namespace {

constexpr double kWheelFactor = 1.25;
constexpr double kKeyFactor = 1.5;
constexpr double kPanShare = 0.1;
/// How near to a mark a click has to be, pixels.
constexpr double kReach = 6.0;
/// Shorter drags are clicks.
constexpr double kDragDistance = 4.0;

double Distance(QPointF a, QPointF b) {
  return std::hypot(a.x() - b.x(), a.y() - b.y());
}

}  // namespace

void PlotCanvas::mousePressEvent(QMouseEvent* event) {
  setFocus(Qt::MouseFocusReason);
  if (event->button() == Qt::LeftButton || event->button() == Qt::RightButton) StartGesture(*event);
}

void PlotCanvas::StartGesture(const QMouseEvent& event) {
  pressed_at_ = event.position();
  was_dragged_ = false;
  pressed_along_ = AlongRange();
  pressed_up_ = UpRange();
  held_.reset();
  gesture_ = Gesture::kPan;
  if (event.button() == Qt::RightButton || zooms_by_band_ || event.modifiers().testFlag(Qt::ShiftModifier)) {
    gesture_ = Gesture::kBand;
  } else if (const MarkedPeak* const mark = MarkAt(pressed_at_)) {
    held_ = *mark;
    gesture_ = Gesture::kPeak;
  }
}

const MarkedPeak* PlotCanvas::MarkAt(QPointF position) const {
  if (!shows_peaks_) return nullptr;
  const double angle = TwoThetaAtPixel(position.x());
  const double within = std::max(std::abs(TwoThetaAtPixel(position.x() + kReach) - angle),
                                 std::abs(TwoThetaAtPixel(position.x() - kReach) - angle));
  const MarkedPeak* const mark = picker_.NearestMark(angle, within);
  return mark != nullptr && mark->origin != PeakOrigin::kAlpha2 ? mark : nullptr;
}

void PlotCanvas::mouseMoveEvent(QMouseEvent* event) {
  const QPointF position = event->position();
  if (axisRect()->rect().contains(position.toPoint())) SetCursor(TwoThetaAtPixel(position.x()));
  if (gesture_ == Gesture::kNone) return;
  was_dragged_ = was_dragged_ || Distance(position, pressed_at_) >= kDragDistance;
  if (!was_dragged_) return;
  if (gesture_ == Gesture::kBand) {
    band_ = QRectF(pressed_at_, position).normalized() & QRectF(axisRect()->rect());
    layer(PlotMarks::kLayer)->replot();
  } else if (gesture_ == Gesture::kPan) {
    const double along =
        (pressed_at_.x() - position.x()) * (pressed_along_.upper - pressed_along_.lower) / axisRect()->width();
    const double up = (position.y() - pressed_at_.y()) * (pressed_up_.upper - pressed_up_.lower) / axisRect()->height();
    SetView({pressed_along_.lower + along, pressed_along_.upper + along},
            {pressed_up_.lower + up, pressed_up_.upper + up});
  }
}

void PlotCanvas::mouseReleaseEvent(QMouseEvent* event) {
  const Gesture gesture = std::exchange(gesture_, Gesture::kNone);
  if (gesture == Gesture::kBand && was_dragged_) {
    ZoomToBand();
  } else if (gesture == Gesture::kPeak && was_dragged_) {
    emit MovePeakAsked(*held_, TwoThetaAtPixel(event->position().x()));
  } else if (gesture != Gesture::kNone && !was_dragged_ && event->button() == Qt::LeftButton) {
    ClickAt(event->position());
  }
}

void PlotCanvas::ClickAt(QPointF position) {
  if (!axisRect()->rect().contains(position.toPoint())) return;
  SetCursor(TwoThetaAtPixel(position.x()));
  click_changed_peaks_ = shows_peaks_ && !model_.IsEmpty();
  if (!click_changed_peaks_) return;
  if (held_) {
    emit RemovePeakAsked(*held_);
  } else {
    emit AddPeakAsked(TwoThetaAtPixel(position.x()));
  }
}

void PlotCanvas::ZoomToBand() {
  const QRectF band = std::exchange(band_, QRectF());
  if (band.width() < kDragDistance && band.height() < kDragDistance) return replot(rpQueuedReplot);
  // A flat band zooms along alone, a narrow one up alone.
  PlotRange along = AlongRange();
  PlotRange up = UpRange();
  if (band.width() >= kDragDistance) along = {xAxis->pixelToCoord(band.left()), xAxis->pixelToCoord(band.right())};
  if (band.height() >= kDragDistance) up = {yAxis->pixelToCoord(band.bottom()), yAxis->pixelToCoord(band.top())};
  SetView(along, up);
}

void PlotCanvas::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  if (std::exchange(click_changed_peaks_, false)) emit ClickWithdrawn();
  ShowAll();
}

void PlotCanvas::wheelEvent(QWheelEvent* event) {
  const double steps = event->angleDelta().y() / 120.0;
  const double factor = std::pow(kWheelFactor, steps);
  const QPointF position = event->position();
  const bool is_up = event->modifiers().testFlag(Qt::ControlModifier) || position.x() < axisRect()->left();
  if (is_up) {
    ZoomAxis(*yAxis, factor, yAxis->pixelToCoord(position.y()));
  } else {
    ZoomAxis(*xAxis, factor, xAxis->pixelToCoord(position.x()));
  }
  event->accept();
}

void PlotCanvas::keyPressEvent(QKeyEvent* event) {
  if (PeakByKey(*event) || CursorByKey(*event) || ZoomByKey(*event) || MoveByKey(*event)) return event->accept();
  QCustomPlot::keyPressEvent(event);
}

bool PlotCanvas::MoveByKey(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Left:
      Pan(-kPanShare, 0.0);
      return true;
    case Qt::Key_Right:
      Pan(kPanShare, 0.0);
      return true;
    case Qt::Key_Up:
      Pan(0.0, kPanShare);
      return true;
    case Qt::Key_Down:
      Pan(0.0, -kPanShare);
      return true;
    default:
      return false;
  }
}

bool PlotCanvas::ZoomByKey(const QKeyEvent& event) {
  const bool is_up = event.modifiers().testFlag(Qt::ControlModifier);
  if (event.key() == Qt::Key_Plus || event.key() == Qt::Key_Equal || event.key() == Qt::Key_Minus) {
    const double factor = event.key() == Qt::Key_Minus ? 1.0 / kKeyFactor : kKeyFactor;
    is_up ? ZoomUp(factor) : ZoomAlong(factor);
    return true;
  }
  if (event.key() == Qt::Key_Home || event.key() == Qt::Key_0) return ShowAll(), true;
  if (event.key() == Qt::Key_F) return FitHeight(), true;
  return false;
}

bool PlotCanvas::CursorByKey(const QKeyEvent& event) {
  if (event.key() == Qt::Key_PageDown || event.key() == Qt::Key_PageUp) {
    StepToMark(event.key() == Qt::Key_PageDown);
    return true;
  }
  const bool is_arrow = event.key() == Qt::Key_Left || event.key() == Qt::Key_Right;
  if (!is_arrow || !event.modifiers().testFlag(Qt::ControlModifier)) return false;
  constexpr double kFastPixels = 10.0;
  const double pixels = event.modifiers().testFlag(Qt::ShiftModifier) ? kFastPixels : 1.0;
  const QRect rect = axisRect()->rect();
  const double from = cursor_ ? PixelOf(*cursor_) : rect.center().x();
  const double to = from + (event.key() == Qt::Key_Right ? pixels : -pixels);
  SetCursor(TwoThetaAtPixel(std::clamp<double>(to, rect.left(), rect.right())));
  return true;
}

bool PlotCanvas::PeakByKey(const QKeyEvent& event) {
  if (!shows_peaks_ || !cursor_ || model_.IsEmpty()) return false;
  const MarkedPeak* const mark = MarkAt(QPointF(PixelOf(*cursor_), 0.0));
  if (event.key() == Qt::Key_Space || event.key() == Qt::Key_Insert) {
    if (mark == nullptr) emit AddPeakAsked(*cursor_);
    return true;
  }
  if (mark == nullptr) return false;
  if (event.key() == Qt::Key_Delete || event.key() == Qt::Key_Backspace) {
    emit RemovePeakAsked(*mark);
    return true;
  }
  const bool is_arrow = event.key() == Qt::Key_Left || event.key() == Qt::Key_Right;
  if (!is_arrow || !event.modifiers().testFlag(Qt::AltModifier)) return false;
  const std::vector<double>& angles = model_.Series().front().pattern.two_theta;
  const std::size_t point = NearestIndex(angles, mark->peak.two_theta);
  const bool is_right = event.key() == Qt::Key_Right;
  if (is_right ? point + 1 >= angles.size() : point == 0) return true;
  const double to = angles[is_right ? point + 1 : point - 1];
  const MarkedPeak moved = *mark;
  SetCursor(to);
  emit MovePeakAsked(moved, to);
  return true;
}

}  // namespace talven
