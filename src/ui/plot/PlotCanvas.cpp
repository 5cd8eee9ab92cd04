#include "ui/plot/PlotCanvas.h"

#include <algorithm>
#include <cmath>

#include "ui/plot/AxisTickers.h"
#include "ui/plot/ColumnCurves.h"
#include "ui/plot/PlotAccessible.h"
#include "ui/plot/PlotMarks.h"

namespace talven {
namespace {

/// More points than this are drawn without smooth edges, so that a frame keeps its time.
constexpr std::size_t kSmoothPoints = 13'000;
/// Zooming further than this share of a degree, an Angstrom or 1/Angstrom shows nothing new.
constexpr double kNarrowest = 1e-4;
/// Names in a column of the legend.
constexpr int kLegendRows = 12;

PlotRange ToPlotRange(const QCPRange& range) {
  return {range.lower, range.upper};
}

QVector<double> ToVector(const std::vector<double>& values) {
  return {values.begin(), values.end()};
}

}  // namespace

PlotCanvas::PlotCanvas(const PlotModel& model, const PeakPicker& picker, QWidget* parent)
    : QCustomPlot(parent), model_(model), picker_(picker), colours_(ColoursFor(palette())) {
  InstallPlotAccessible();
  setObjectName("plot");
  setAccessibleName("Plot");
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setMinimumSize(240, 160);
  SetUpAxes();
  new ColumnPicture(*this);
  marks_ = new PlotMarks(*this);
  connect(this, &QCustomPlot::beforeReplot, this, [this] { FillCurves(width(), devicePixelRatioF()); });
  Update(false);
}

void PlotCanvas::SetUpAxes() {
  axisRect()->setupFullAxesBox();
  for (QCPAxis* const axis : {xAxis2, yAxis2}) {
    axis->setTicks(false);
    axis->setTickLabels(false);
  }
  // Numbers keep their point, whatever the language of the system.
  setLocale(QLocale::c());
  xAxis->setNumberFormat("gb");
  yAxis->setTicker(QSharedPointer<QCPAxisTicker>(new UpTicker(model_)));
  title_ = new QCPTextElement(this);
  title_->setTextFlags(Qt::AlignCenter);
  plotLayout()->insertRow(0);
  plotLayout()->addElement(0, 0, title_);
  plotLayout()->setRowSpacing(0);
  legend->setVisible(false);
  legend->setWrap(kLegendRows);
  axisRect()->insetLayout()->setInsetAlignment(0, Qt::AlignTop | Qt::AlignRight);
}

void PlotCanvas::Update(bool keeps_view) {
  MatchGraphs();
  Style();
  ReserveTickStrip();
  title_->setText(model_.IsEmpty() ? QString() : QString::fromStdString(model_.Series().front().title));
  xAxis->setLabel(QString::fromStdString(model_.AlongName()));
  yAxis->setLabel(QString::fromStdString(model_.UpName()));
  setAccessibleDescription(QString::fromStdString(model_.Description()));
  if (!keeps_view) {
    ShowAll();
  } else {
    replot(rpQueuedReplot);
  }
}

void PlotCanvas::MatchGraphs() {
  clearGraphs();
  const auto& series = model_.Series();
  for (std::size_t i = 0; i < series.size(); ++i) {
    AddCurve(QString::fromStdString(model_.CurveName(i)));
  }
  // Behind the curves of the patterns, with or without points: background and difference.
  AddCurve("Background");
  AddCurve("Difference");
  for (int i = 0; i < graphCount(); ++i) graph(i)->setAdaptiveSampling(false);
  const bool has_background = shows_peaks_ && !picker_.Background().empty();
  if (!has_background) graph(graphCount() - 2)->removeFromLegend();
  if (!model_.HasDifference()) graph(graphCount() - 1)->removeFromLegend();
  legend->setVisible(series.size() > 1 || has_background);
}

void PlotCanvas::AddCurve(const QString& name) {
  // The plot owns it.
  (new ColumnGraph(xAxis, yAxis))->setName(name);
}

void PlotCanvas::UpdateMarks() {
  MatchGraphs();
  Style();
  replot(rpQueuedReplot);
}

void PlotCanvas::SetPeaksShown(bool shown) {
  shows_peaks_ = shown;
  UpdateMarks();
}

void PlotCanvas::SetColours(const PlotColours& colours) {
  colours_ = colours;
  Style();
}

void PlotCanvas::Style() {
  setBackground(QBrush(colours_.ground));
  for (QCPAxis* const axis : {xAxis, yAxis, xAxis2, yAxis2}) {
    axis->setBasePen(QPen(colours_.text, 0));
    axis->setTickPen(QPen(colours_.text, 0));
    axis->setSubTickPen(QPen(colours_.text, 0));
    axis->setTickLabelColor(colours_.text);
    axis->setLabelColor(colours_.text);
    axis->setTickLabelFont(font());
    axis->setLabelFont(font());
    axis->grid()->setPen(QPen(colours_.grid, 0));
    axis->grid()->setZeroLinePen(QPen(colours_.grid, 0));
  }
  title_->setTextColor(colours_.text);
  QFont title_font = font();
  title_font.setBold(true);
  title_->setFont(title_font);
  QColor see_through = colours_.ground;
  see_through.setAlphaF(0.8F);
  legend->setBrush(QBrush(see_through));
  legend->setBorderPen(QPen(colours_.grid, 0));
  legend->setTextColor(colours_.text);
  legend->setFont(font());
  for (int i = 0; i < graphCount(); ++i) graph(i)->setPen(QPen(colours_.Curve(static_cast<std::size_t>(i)), 1.0));
  graph(graphCount() - 2)->setPen(QPen(colours_.background_curve, 1.0, Qt::DashLine));
  graph(graphCount() - 1)->setPen(QPen(colours_.difference, 1.0));
}

void PlotCanvas::ReserveTickStrip() {
  xAxis->setOffset(marks_->StripHeight());
  xAxis2->setOffset(0);
}

void PlotCanvas::FillCurves(int width, double ratio) {
  const PlotRange along = AlongRange();
  const std::size_t count = model_.Series().size();
  // A window that appears draws before anybody said that the model changed.
  if (static_cast<std::size_t>(graphCount()) != count + 2) {
    MatchGraphs();
    Style();
  }
  const auto pixels = static_cast<std::size_t>(std::max(width, 200));
  const std::size_t fine_columns = pixels * static_cast<std::size_t>(std::ceil(ratio));
  const bool is_smooth = model_.DrawnPoints(along, fine_columns) <= kSmoothPoints;
  const std::size_t columns = is_smooth ? fine_columns : pixels;
  for (std::size_t i = 0; i < count; ++i) {
    graph(static_cast<int>(i))->setAntialiased(is_smooth);
    FillCurve(static_cast<int>(i), model_.CurveOf(i, along, columns));
  }
  const std::vector<double>& background = picker_.Background();
  const bool has_background =
      shows_peaks_ && count > 0 && background.size() == model_.Series().front().pattern.PointCount();
  FillCurve(graphCount() - 2, has_background ? model_.CurveOf(background, along, columns) : Curve{});
  FillCurve(graphCount() - 1, model_.HasDifference() ? model_.DifferenceCurve(along, columns) : Curve{});
}

void PlotCanvas::FillCurve(int index, const Curve& curve) {
  graph(index)->setData(ToVector(curve.x), ToVector(curve.y), true);
}

PlotRange PlotCanvas::AlongRange() const {
  return ToPlotRange(xAxis->range());
}

PlotRange PlotCanvas::UpRange() const {
  return ToPlotRange(yAxis->range());
}

void PlotCanvas::SetView(const PlotRange& along, const PlotRange& up) {
  if (along.upper - along.lower > kNarrowest) xAxis->setRange(along.lower, along.upper);
  if (up.upper > up.lower) yAxis->setRange(up.lower, up.upper);
  replot(rpQueuedReplot);
}

std::optional<PlotRange> PlotCanvas::ZoomedAngles() const {
  const PlotRange view = AlongRange();
  const PlotRange all = model_.FullAlong();
  if (model_.IsEmpty() || (view.lower <= all.lower && view.upper >= all.upper)) return std::nullopt;
  const auto [first, last] = std::minmax({model_.TwoThetaOf(view.lower), model_.TwoThetaOf(view.upper)});
  return PlotRange{first, last};
}

void PlotCanvas::ShowAngles(const PlotRange& angles) {
  const PlotRange all = model_.FullAlong();
  const auto [lower, upper] = std::minmax({model_.Along(angles.lower), model_.Along(angles.upper)});
  SetView({std::max(lower, all.lower), std::min(upper, all.upper)}, UpRange());
}

void PlotCanvas::ShowAll() {
  const PlotRange along = model_.FullAlong();
  SetView(along, model_.FullUp(along));
}

void PlotCanvas::FitHeight() {
  SetView(AlongRange(), model_.FullUp(AlongRange()));
}

void PlotCanvas::ZoomAxis(QCPAxis& axis, double factor, double centre) {
  if (axis.range().size() / factor < kNarrowest && factor > 1.0 && &axis == xAxis) return;
  axis.scaleRange(1.0 / factor, centre);
  replot(rpQueuedReplot);
}

void PlotCanvas::ZoomAlong(double factor) {
  const double cursor = cursor_ ? model_.Along(*cursor_) : xAxis->range().center();
  ZoomAxis(*xAxis, factor, xAxis->range().contains(cursor) ? cursor : xAxis->range().center());
}

void PlotCanvas::ZoomUp(double factor) {
  // What is low stays in view.
  ZoomAxis(*yAxis, factor, yAxis->range().lower);
}

void PlotCanvas::Pan(double along, double up) {
  xAxis->moveRange(along * xAxis->range().size());
  yAxis->moveRange(up * yAxis->range().size());
  replot(rpQueuedReplot);
}

double PlotCanvas::PixelOf(double two_theta) const {
  return xAxis->coordToPixel(model_.Along(two_theta));
}

double PlotCanvas::TwoThetaAtPixel(double pixel) const {
  return model_.TwoThetaOf(xAxis->pixelToCoord(pixel));
}

void PlotCanvas::SetCursor(std::optional<double> two_theta) {
  cursor_ = two_theta;
  layer(PlotMarks::kLayer)->replot();
  emit CursorMoved();
}

void PlotCanvas::StepToMark(bool forward) {
  std::vector<double> places;
  if (shows_peaks_) {
    for (const MarkedPeak& mark : picker_.Marks()) places.push_back(mark.peak.two_theta);
  }
  if (places.empty()) {
    for (const ReflectionTick& tick : model_.Ticks()) places.push_back(tick.two_theta);
  }
  if (places.empty()) return;
  constexpr double kSame = 1e-6;
  const double from = cursor_.value_or(forward ? 0.0 : 180.0);
  if (forward) {
    const auto next = std::ranges::upper_bound(places, from + kSame);
    SetCursor(next == places.end() ? places.back() : *next);
  } else {
    const auto next = std::ranges::lower_bound(places, from - kSame);
    SetCursor(next == places.begin() ? places.front() : *(next - 1));
  }
  const double along = model_.Along(*cursor_);
  if (!xAxis->range().contains(along)) {
    xAxis->setRange(along, xAxis->range().size(), Qt::AlignCenter);
    replot(rpQueuedReplot);
  }
}

void PlotCanvas::changeEvent(QEvent* event) {
  QCustomPlot::changeEvent(event);
  if (event->type() != QEvent::PaletteChange && event->type() != QEvent::FontChange) return;
  SetColours(ColoursFor(palette()));
  replot(rpQueuedReplot);
}

}  // namespace talven
