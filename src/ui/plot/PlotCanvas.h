// The drawing of a plot: axes, curves, ticks, peaks and cursor of a PlotModel, and the part of it that is in view.
#pragma once

#include <qcustomplot.h>

#include <optional>

#include "ui/plot/PlotColours.h"
#include "ui/plot/model/PeakPicker.h"
#include "ui/plot/model/PlotModel.h"

namespace talven {

class PlotMarks;

/// Mouse: drag moves the view, with Shift or the right button a band zooms, the wheel zooms along (with Ctrl, or over
/// the axis, up), a double click shows all. Keys: arrows move, + and - zoom along, with Shift up, Home shows all, F
/// fits the height, Ctrl with an arrow moves the cursor, Page Up and Page Down go to the next mark. While peaks are
/// edited a click adds one or removes the one it meets, a drag moves it; Space and Delete do so at the cursor, Alt with
/// an arrow moves by a point.
class PlotCanvas : public QCustomPlot {
  Q_OBJECT

 public:
  /// Both outlive it.
  PlotCanvas(const PlotModel& model, const PeakPicker& picker, QWidget* parent = nullptr);

  /// After the model changed: draws it, within the same view where `keeps_view`.
  void Update(bool keeps_view);
  /// After the picker changed.
  void UpdateMarks();
  void SetPeaksShown(bool shown);
  bool ArePeaksShown() const { return shows_peaks_; }
  void SetZoomsByBand(bool by_band) { zooms_by_band_ = by_band; }
  void SetColours(const PlotColours& colours);
  const PlotColours& Colours() const { return colours_; }

  void ShowAll();
  /// All of the height that the present part along needs.
  void FitHeight();
  /// By a factor about the cursor where it is in view, else about the middle; above 1 shows more detail.
  void ZoomAlong(double factor);
  void ZoomUp(double factor);
  /// By shares of what is in view.
  void Pan(double along, double up);
  PlotRange AlongRange() const;
  PlotRange UpRange() const;
  void SetView(const PlotRange& along, const PlotRange& up);
  /// Degrees, of the ends of what is in view along; nothing where that is all.
  std::optional<PlotRange> ZoomedAngles() const;
  void ShowAngles(const PlotRange& angles);

  /// Degrees; where the cursor stands.
  std::optional<double> Cursor() const { return cursor_; }
  void SetCursor(std::optional<double> two_theta);
  /// The next mark of a peak or, without peaks, the next reflection.
  void StepToMark(bool forward);

  const PlotModel& Model() const { return model_; }
  const PeakPicker& Picker() const { return picker_; }
  /// The band being drawn.
  const QRectF& Band() const { return band_; }
  /// Thins the curves to what a picture of this width can show, whose pixels are this much finer. The window does so
  /// for itself whenever it is drawn.
  void FillCurves(int width, double ratio);
  /// Pixels from the left, also back.
  double PixelOf(double two_theta) const;
  double TwoThetaAtPixel(double pixel) const;

 signals:
  void CursorMoved();
  void AddPeakAsked(double two_theta);
  void RemovePeakAsked(const talven::MarkedPeak& mark);
  void MovePeakAsked(const talven::MarkedPeak& mark, double two_theta);
  /// The click that asked for a peak or for its removal was the first of a double click.
  void ClickWithdrawn();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  enum class Gesture { kNone, kPan, kBand, kPeak };

  void SetUpAxes();
  void Style();
  void FillCurve(int graph, const Curve& curve);
  void MatchGraphs();
  void AddCurve(const QString& name);
  void ReserveTickStrip();
  void ZoomAxis(QCPAxis& axis, double factor, double centre);
  const MarkedPeak* MarkAt(QPointF position) const;
  void StartGesture(const QMouseEvent& event);
  void ClickAt(QPointF position);
  void ZoomToBand();
  bool MoveByKey(const QKeyEvent& event);
  bool ZoomByKey(const QKeyEvent& event);
  bool CursorByKey(const QKeyEvent& event);
  bool PeakByKey(const QKeyEvent& event);

  const PlotModel& model_;
  const PeakPicker& picker_;
  PlotMarks* marks_;
  QCPTextElement* title_;
  PlotColours colours_;
  bool shows_peaks_ = false;
  bool zooms_by_band_ = false;
  std::optional<double> cursor_;

  Gesture gesture_ = Gesture::kNone;
  QPointF pressed_at_;
  bool was_dragged_ = false;
  PlotRange pressed_along_;
  PlotRange pressed_up_;
  std::optional<MarkedPeak> held_;
  bool click_changed_peaks_ = false;
  QRectF band_;
};

}  // namespace talven
