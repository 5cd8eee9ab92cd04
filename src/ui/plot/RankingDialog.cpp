#include "ui/plot/RankingDialog.h"

#include <QHeaderView>
#include <QTableWidget>
#include <QVBoxLayout>

namespace talven {

RankingDialog::RankingDialog(const QString& title, const std::vector<RankingRow>& rows, QWidget* parent)
    : QDialog(parent), table_(new QTableWidget(static_cast<int>(rows.size()), 4, this)) {
  setObjectName("ranking");
  setWindowTitle(tr("Ranking - %1").arg(title));
  setAttribute(Qt::WA_DeleteOnClose);
  table_->setAccessibleName(tr("Ranking"));
  table_->setHorizontalHeaderLabels({tr("Rank"), tr("Candidate"), tr("Score"), tr("Note")});
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setTabKeyNavigation(false);
  table_->verticalHeader()->hide();
  for (int row = 0; row < table_->rowCount(); ++row) {
    const RankingRow& entry = rows[static_cast<std::size_t>(row)];
    int column = 0;
    for (const std::string& text : {entry.rank, entry.candidate, entry.score, entry.note}) {
      table_->setItem(row, column++, new QTableWidgetItem(QString::fromStdString(text)));
    }
  }
  table_->resizeColumnsToContents();
  table_->horizontalHeader()->setStretchLastSection(true);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(table_);
  resize(560, 360);
  connect(table_, &QTableWidget::currentCellChanged, this, [this](int row, int /*column*/, int previous) {
    if (row >= 0 && row != previous) emit RowChosen(row);
  });
}

void RankingDialog::Choose(int row) {
  table_->setCurrentCell(row, 0);
}

}  // namespace talven
