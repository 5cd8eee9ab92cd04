#include "ui/plot/PeakPanel.h"

#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <cmath>

#include "ui/plot/PlotText.h"

namespace talven {
namespace {

/// The threshold's slider counts in tenths.
constexpr double kThresholdStep = 0.1;
constexpr int kThresholdSteps = 300;
/// The width's slider is logarithmic, from 0.002 to 2 degrees.
constexpr double kLeastWidth = 0.002;
constexpr double kWidthRange = 1000.0;
constexpr int kWidthSteps = 300;

double WidthOf(int step) {
  return kLeastWidth * std::pow(kWidthRange, static_cast<double>(step) / kWidthSteps);
}

int StepOf(double width) {
  if (!(width > kLeastWidth)) return 0;
  return static_cast<int>(std::lround(std::log(width / kLeastWidth) / std::log(kWidthRange) * kWidthSteps));
}

}  // namespace

PeakPanel::PeakPanel(QWidget* parent) : QWidget(parent) {
  setObjectName("peakPanel");
  setAccessibleName(tr("Peaks"));
  setLayout(new QVBoxLayout);
  threshold_ = AddSlider(tr("&Threshold"), tr("Standard errors by which a peak has to rise above the noise"),
                         kThresholdSteps, threshold_value_);
  threshold_->setObjectName("threshold");
  threshold_->setMinimum(5);
  width_ = AddSlider(tr("&Width"), tr("Full width at half height of the peaks that are looked for, degrees"),
                     kWidthSteps, width_value_);
  width_->setObjectName("width");
  is_measured_ = new QCheckBox(tr("Width as &measured"), this);
  is_measured_->setObjectName("measuredWidth");
  keep_alpha2_ = new QCheckBox(tr("&Keep Kα2 companions"), this);
  keep_alpha2_->setObjectName("keepAlpha2");
  summary_ = new QLabel(this);
  summary_->setObjectName("peakSummary");
  summary_->setWordWrap(true);
  table_ = new PeakTable(this);
  auto* const boxes = new QHBoxLayout;
  for (QCheckBox* const box : {is_measured_, keep_alpha2_}) boxes->addWidget(box);
  boxes->addStretch();
  static_cast<QVBoxLayout*>(layout())->addLayout(boxes);
  layout()->addWidget(summary_);
  layout()->addWidget(table_);
  connect(threshold_, &QSlider::valueChanged, this, [this](int step) { emit ThresholdChosen(step * kThresholdStep); });
  connect(width_, &QSlider::valueChanged, this, [this](int step) { emit WidthChosen(WidthOf(step)); });
  connect(is_measured_, &QCheckBox::toggled, this, [this](bool is_measured) {
    emit WidthChosen(is_measured ? std::nullopt : std::optional(WidthOf(width_->value())));
  });
  connect(keep_alpha2_, &QCheckBox::toggled, this, &PeakPanel::KeepAlpha2Chosen);
}

QSlider* PeakPanel::AddSlider(const QString& name, const QString& help, int highest, QLabel*& value) {
  auto* const label = new QLabel(name, this);
  auto* const slider = new QSlider(Qt::Horizontal, this);
  slider->setRange(0, highest);
  slider->setPageStep(10);
  slider->setToolTip(help);
  slider->setAccessibleName(QString(name).remove(QLatin1Char('&')));
  slider->setAccessibleDescription(help);
  label->setBuddy(slider);
  label->setMinimumWidth(label->fontMetrics().horizontalAdvance(tr("Threshold ")));
  value = new QLabel(this);
  value->setMinimumWidth(value->fontMetrics().horizontalAdvance(QStringLiteral("0.0000°")));
  auto* const row = new QHBoxLayout;
  row->addWidget(label);
  row->addWidget(slider, 1);
  row->addWidget(value);
  static_cast<QVBoxLayout*>(layout())->addLayout(row);
  return slider;
}

void PeakPanel::ShowPicker(const PeakPicker& picker, double wavelength) {
  const PeakChoices& choices = picker.Choices();
  const QSignalBlocker blockers[] = {QSignalBlocker(threshold_), QSignalBlocker(width_), QSignalBlocker(is_measured_),
                                     QSignalBlocker(keep_alpha2_)};
  threshold_->setValue(static_cast<int>(std::lround(choices.threshold / kThresholdStep)));
  threshold_value_->setText(Fixed(choices.threshold, 1) + " σ");
  width_->setValue(StepOf(picker.Fwhm()));
  width_value_->setText(Fixed(picker.Fwhm(), picker.Fwhm() < 0.1 ? 4 : 3) + "°");
  is_measured_->setChecked(!choices.fwhm.has_value());
  keep_alpha2_->setChecked(choices.keep_alpha2);
  summary_->setText(Summary(picker));
  table_->SetMarks(picker.Marks(), wavelength);
}

QString PeakPanel::Summary(const PeakPicker& picker) const {
  const qsizetype listed = static_cast<qsizetype>(picker.Listed().size());
  qsizetype companions = 0;
  for (const MarkedPeak& mark : picker.Marks()) companions += mark.origin == PeakOrigin::kAlpha2 ? 1 : 0;
  QString text = listed == 1 ? tr("1 peak") : tr("%1 peaks").arg(listed);
  if (picker.LeftOutCount() > 0) text += tr(", %1 weaker ones beyond the 100 of a list").arg(picker.LeftOutCount());
  if (companions > 0) text += tr(", %1 Kα2 marked and left out").arg(companions);
  return text;
}

}  // namespace talven
