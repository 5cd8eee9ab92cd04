// The rows of a screening's ranking, to choose what stands below the measured pattern.
#pragma once

#include <QDialog>
#include <vector>

#include "ui/plot/model/Ranking.h"

class QTableWidget;

namespace talven {

/// Beside the plot, which stays in use: each row that is gone to is shown there at once.
class RankingDialog : public QDialog {
  Q_OBJECT

 public:
  RankingDialog(const QString& title, const std::vector<RankingRow>& rows, QWidget* parent);

  /// From 0.
  void Choose(int row);

 signals:
  void RowChosen(int row);

 private:
  QTableWidget* table_;
};

}  // namespace talven
