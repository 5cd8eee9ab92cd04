// The ticks of the vertical axis as the model places them.
#pragma once

#include <qcustomplot.h>

#include "ui/plot/model/PlotModel.h"

namespace talven {

class UpTicker : public QCPAxisTicker {
 public:
  explicit UpTicker(const PlotModel& model) : model_(model) {}

  void generate(const QCPRange& range, const QLocale& locale, QChar format, int precision, QVector<double>& ticks,
                QVector<double>* sub_ticks, QVector<QString>* labels) override;

 private:
  const PlotModel& model_;
};

}  // namespace talven
