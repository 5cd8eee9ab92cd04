#include "ui/plot/PlotWidget.h"

#include <QAccessible>
#include <QVBoxLayout>
#include <utility>

#include "ui/plot/PeakCommand.h"
#include "ui/plot/PlotParts.h"
#include "ui/plot/PlotText.h"

namespace talven {

PlotWidget::PlotWidget(QWidget* parent) : QWidget(parent), parts_(std::make_unique<Parts>()) {
  setObjectName("plotWidget");
  setAcceptDrops(true);
  MakeParts();
  MakeActions();
  MakeToolBar();
  ConnectParts();
  setFocusProxy(parts_->canvas);
  setFocusPolicy(parts_->canvas->focusPolicy());
  Redraw(false);
}

PlotWidget::~PlotWidget() {
  // The drawing looks at the model, which goes with the parts.
  delete parts_->splitter;
}

void PlotWidget::MakeParts() {
  Parts& p = *parts_;
  p.tools = new QToolBar(this);
  p.tools->setAccessibleName(tr("Plot tools"));
  p.splitter = new QSplitter(Qt::Horizontal, this);
  p.canvas = new PlotCanvas(p.model, p.picker, p.splitter);
  p.panel = new PeakPanel(p.splitter);
  p.panel->hide();
  p.splitter->addWidget(p.canvas);
  p.splitter->addWidget(p.panel);
  p.splitter->setStretchFactor(0, 3);
  p.splitter->setStretchFactor(1, 0);
  p.splitter->setChildrenCollapsible(false);
  p.message = new QLabel(this);
  p.message->setObjectName("plotMessage");
  p.message->setAccessibleDescription(tr("Message"));
  p.message->setWordWrap(true);
  p.message->setMargin(4);
  p.message->setAutoFillBackground(true);
  p.message->setBackgroundRole(QPalette::ToolTipBase);
  p.message->setForegroundRole(QPalette::ToolTipText);
  p.message->hide();
  p.reading = new QLabel(this);
  p.reading->setObjectName("plotReading");
  p.reading->setAccessibleDescription(tr("Cursor"));
  p.reading->setMargin(3);
  p.reading->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(p.tools);
  layout->addWidget(p.message);
  layout->addWidget(p.splitter, 1);
  layout->addWidget(p.reading);
}

void PlotWidget::ConnectParts() {
  Parts& p = *parts_;
  connect(p.canvas, &PlotCanvas::CursorMoved, this, &PlotWidget::ShowReading);
  connect(p.canvas, &PlotCanvas::AddPeakAsked, this,
          [this](double two_theta) { ChangePeaks(tr("add a peak"), parts_->picker.WithPeakAt(two_theta)); });
  const auto remove = [this](const MarkedPeak& mark) {
    ChangePeaks(tr("remove a peak"), parts_->picker.Without(mark));
  };
  connect(p.canvas, &PlotCanvas::RemovePeakAsked, this, remove);
  connect(&p.panel->Table(), &PeakTable::RemovePeakAsked, this, remove);
  connect(p.canvas, &PlotCanvas::MovePeakAsked, this, [this](const MarkedPeak& mark, double two_theta) {
    ChangePeaks(tr("move a peak"), parts_->picker.WithMoved(mark, two_theta));
  });
  connect(p.canvas, &PlotCanvas::ClickWithdrawn, &p.undo, &QUndoStack::undo);
  connect(&p.panel->Table(), &PeakTable::PeakChosen, p.canvas,
          [this](double two_theta) { parts_->canvas->SetCursor(two_theta); });
  connect(p.panel, &PeakPanel::ThresholdChosen, this, [this](double threshold) {
    PeakChoices choices = parts_->picker.Choices();
    choices.threshold = threshold;
    ChangePeaks(tr("threshold"), choices, 1);
  });
  connect(p.panel, &PeakPanel::WidthChosen, this, [this](std::optional<double> fwhm) {
    PeakChoices choices = parts_->picker.Choices();
    choices.fwhm = fwhm;
    ChangePeaks(tr("width"), choices, 2);
  });
  connect(p.panel, &PeakPanel::KeepAlpha2Chosen, this, [this](bool keep) {
    PeakChoices choices = parts_->picker.Choices();
    choices.keep_alpha2 = keep;
    ChangePeaks(tr("Kα2"), choices);
  });
}

void PlotWidget::ShowPattern(const QString& title, Pattern pattern, const QString& folder) {
  Show({title.toStdString(), std::move(pattern)}, folder);
}

void PlotWidget::AddOverlay(const QString& title, Pattern pattern) {
  Overlay({title.toStdString(), std::move(pattern)});
}

void PlotWidget::Show(PlotSeries series, const QString& folder) {
  Parts& p = *parts_;
  const QString title = QString::fromStdString(series.title);
  p.model.Show(std::move(series));
  p.folder = folder;
  p.is_picked = false;
  p.undo.clear();
  p.canvas->SetCursor(std::nullopt);
  PreparePeaks();
  Redraw(false);
  emit TitleChanged(title);
}

void PlotWidget::Overlay(PlotSeries series) {
  if (parts_->model.IsEmpty()) return Show(std::move(series), {});
  parts_->model.AddOverlay(std::move(series));
  Redraw(false);
}

void PlotWidget::ApplySettings(const PlotSettings& settings) {
  Parts& p = *parts_;
  const auto in_view = p.canvas->ZoomedAngles();
  const PlotSettings before = p.model.Settings();
  p.model.Set(settings);
  const std::pair<QComboBox*, int> boxes[] = {{p.along, static_cast<int>(settings.along)},
                                              {p.up, static_cast<int>(settings.up)},
                                              {p.arrangement, static_cast<int>(settings.arrangement)}};
  for (const auto& [box, index] : boxes) {
    const QSignalBlocker blocker(box);
    box->setCurrentIndex(index);
  }
  const QSignalBlocker blocker(p.difference);
  p.difference->setChecked(settings.shows_difference);
  Redraw(in_view.has_value());
  // The same angles stay in view and, on the same axis, the same height.
  if (in_view) p.canvas->ShowAngles(*in_view);
  PlotSettings same_up = settings;
  same_up.along = before.along;
  if (in_view && !(same_up == before)) p.canvas->FitHeight();
}

void PlotWidget::Redraw(bool keeps_view) {
  Parts& p = *parts_;
  p.canvas->Update(keeps_view);
  const bool has_pattern = !p.model.IsEmpty();
  const bool has_overlay = p.model.Series().size() > 1;
  p.remove_overlays->setEnabled(has_overlay);
  p.difference->setEnabled(has_overlay);
  for (QAction* const action : {p.ranking, p.export_plot, p.show_all, p.fit_height, p.zoom_in, p.zoom_out, p.peaks}) {
    action->setEnabled(has_pattern);
  }
  p.save_peaks->setEnabled(has_pattern);
  p.compare->setEnabled(has_pattern);
  if (has_overlay && p.model.Settings().shows_difference && !p.model.HasDifference()) {
    ShowMessage(p.model.Settings().up == UpScale::kLogarithm
                    ? tr("A difference has no logarithm: choose another scale to see it.")
                    : tr("No difference: the two patterns have no range in common."));
  }
  ShowReading();
}

void PlotWidget::ShowPeaks(bool shown) {
  Parts& p = *parts_;
  if (p.peaks->isChecked() != shown) return p.peaks->setChecked(shown);
  p.panel->setVisible(shown);
  PreparePeaks();
  p.canvas->SetPeaksShown(shown);
}

void PlotWidget::PickPeaksWith(const PeakOptions& options) {
  ShowPeaks(true);
  PeakChoices choices = parts_->picker.Choices();
  choices.threshold = options.threshold;
  choices.fwhm = options.fwhm;
  choices.keep_alpha2 = options.keep_alpha2;
  ChangePeaks(tr("options"), choices);
}

void PlotWidget::GiveWavelength(double wavelength) {
  parts_->model.GiveWavelength(wavelength);
  parts_->is_picked = false;
  parts_->undo.clear();
  PreparePeaks();
  Redraw(false);
}

void PlotWidget::PreparePeaks() {
  Parts& p = *parts_;
  if (p.is_picked || !p.peaks->isChecked() || p.model.IsEmpty()) return;
  p.picker.SetPattern(p.model.Series().front().pattern, p.model.GivenWavelength());
  p.is_picked = true;
  p.panel->ShowPicker(p.picker, p.model.Wavelength());
}

void PlotWidget::ChangePeaks(const QString& text, const PeakChoices& choices, int kind) {
  Parts& p = *parts_;
  const auto apply = [&p](const PeakChoices& chosen) {
    p.picker.Choose(chosen);
    p.panel->ShowPicker(p.picker, p.model.Wavelength());
    p.canvas->UpdateMarks();
  };
  p.undo.push(new PeakCommand(text, p.picker.Choices(), choices, apply, kind));
}

void PlotWidget::ShowReading() {
  Parts& p = *parts_;
  if (p.model.IsEmpty()) {
    p.reading->setText(tr("No pattern yet: open a file, or drop one here."));
    return;
  }
  const auto reading = p.canvas->Cursor() ? p.model.ReadAt(*p.canvas->Cursor()) : std::nullopt;
  if (!reading) {
    p.reading->setText(QString::fromStdString(p.model.Series().front().title));
    return;
  }
  QString text = tr("2θ %1°   d %2 Å   intensity %3")
                     .arg(Fixed(reading->two_theta, 3), Fixed(reading->d, 4), Short(reading->intensity));
  if (reading->reflection) {
    text += tr("   next reflection %1 at %2°")
                .arg(QString::fromStdString(reading->reflection->label), Fixed(reading->reflection->two_theta, 3));
  }
  if (p.model.IsWavelengthAssumed()) text += tr("   (1.54056 Å assumed)");
  p.reading->setText(text);
}

void PlotWidget::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  // Where the table would leave too little room beside it for the curves it stands below them.
  constexpr int kLeastForCurves = 400;
  const bool has_room = width() >= parts_->panel->sizeHint().width() + kLeastForCurves;
  parts_->splitter->setOrientation(has_room ? Qt::Horizontal : Qt::Vertical);
}

void PlotWidget::ShowMessage(const QString& text) {
  parts_->message->setText(text);
  parts_->message->setVisible(!text.isEmpty());
  QAccessibleEvent alert(parts_->message, QAccessible::Alert);
  if (!text.isEmpty()) QAccessible::updateAccessibility(&alert);
}

QString PlotWidget::Message() const {
  return parts_->message->text();
}

}  // namespace talven
