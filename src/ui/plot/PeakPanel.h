// Beside the plot: threshold and width, and the table of peaks.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QSlider>
#include <QWidget>

#include "ui/plot/PeakTable.h"
#include "ui/plot/model/PeakPicker.h"

namespace talven {

/// Shows a picker and tells what the user wants changed; it changes nothing itself.
class PeakPanel : public QWidget {
  Q_OBJECT

 public:
  explicit PeakPanel(QWidget* parent = nullptr);

  /// Wavelength in Angstrom, for d.
  void ShowPicker(const PeakPicker& picker, double wavelength);
  PeakTable& Table() { return *table_; }

 signals:
  void ThresholdChosen(double threshold);
  /// Degrees; nothing for the measured width.
  void WidthChosen(std::optional<double> fwhm);
  void KeepAlpha2Chosen(bool keep);

 private:
  QSlider* AddSlider(const QString& name, const QString& help, int highest, QLabel*& value);
  QString Summary(const PeakPicker& picker) const;

  QSlider* threshold_ = nullptr;
  QLabel* threshold_value_ = nullptr;
  QSlider* width_ = nullptr;
  QLabel* width_value_ = nullptr;
  QCheckBox* is_measured_ = nullptr;
  QCheckBox* keep_alpha2_ = nullptr;
  QLabel* summary_ = nullptr;
  PeakTable* table_ = nullptr;
};

}  // namespace talven
