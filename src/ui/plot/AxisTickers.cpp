#include "ui/plot/AxisTickers.h"

namespace talven {

void UpTicker::generate(const QCPRange& range, const QLocale& /*locale*/, QChar /*format*/, int /*precision*/,
                        QVector<double>& ticks, QVector<double>* sub_ticks, QVector<QString>* labels) {
  constexpr int kWanted = 6;
  ticks.clear();
  if (sub_ticks != nullptr) sub_ticks->clear();
  if (labels != nullptr) labels->clear();
  for (const AxisTick& tick : model_.Up().Ticks(range.lower, range.upper, kWanted)) {
    ticks.append(tick.position);
    if (labels != nullptr) labels->append(QString::fromStdString(tick.label));
  }
}

}  // namespace talven
