#include "ui/plot/PeakTable.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QSortFilterProxyModel>
#include <algorithm>

#include "ui/plot/PlotText.h"
#include "ui/plot/model/AxisScale.h"

namespace talven {

void PeakTableModel::SetMarks(const std::vector<MarkedPeak>& marks, double wavelength) {
  beginResetModel();
  marks_ = marks;
  wavelength_ = wavelength;
  highest_ = 0.0;
  for (const MarkedPeak& mark : marks_) highest_ = std::max(highest_, mark.peak.height);
  endResetModel();
}

int PeakTableModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(marks_.size());
}

int PeakTableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumnCount;
}

double PeakTableModel::Number(const MarkedPeak& mark, int column) const {
  switch (column) {
    case kTwoTheta:
      return mark.peak.two_theta;
    case kD:
      return AlongValue(AlongUnit::kD, mark.peak.two_theta, wavelength_);
    case kHeight:
      return mark.peak.height;
    case kShare:
      return highest_ > 0.0 ? 100.0 * mark.peak.height / highest_ : 0.0;
    case kWidth:
      return mark.peak.fwhm;
    default:
      return static_cast<double>(mark.origin);
  }
}

QString PeakTableModel::Text(const MarkedPeak& mark, int column) const {
  const double number = Number(mark, column);
  switch (column) {
    case kHeight:
    case kShare:
      return Fixed(number, 1);
    case kD:
      return Fixed(number, 4);
    case kOrigin:
      if (mark.origin == PeakOrigin::kByHand) return tr("by hand");
      if (mark.origin == PeakOrigin::kAlpha2) return tr("Kα2, left out");
      return mark.peak.is_alpha2 ? tr("found, Kα2") : tr("found");
    default:
      return Fixed(number, 3);
  }
}

QVariant PeakTableModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const MarkedPeak& mark = Mark(index.row());
  if (role == Qt::DisplayRole) return Text(mark, index.column());
  if (role == kSortRole) return Number(mark, index.column());
  if (role == Qt::TextAlignmentRole && index.column() != kOrigin) return QVariant(Qt::AlignRight | Qt::AlignVCenter);
  return {};
}

QVariant PeakTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return {};
  if (orientation == Qt::Vertical) return section + 1;
  switch (section) {
    case kTwoTheta:
      return tr("2θ (°)");
    case kD:
      return tr("d (Å)");
    case kHeight:
      return tr("Height");
    case kShare:
      return tr("Rel. (%)");
    case kWidth:
      return tr("FWHM (°)");
    default:
      return tr("Origin");
  }
}

PeakTable::PeakTable(QWidget* parent)
    : QTableView(parent), peaks_(new PeakTableModel(this)), sorted_(new QSortFilterProxyModel(this)) {
  setObjectName("peakTable");
  setAccessibleName(tr("Peak table"));
  sorted_->setSourceModel(peaks_);
  sorted_->setSortRole(PeakTableModel::kSortRole);
  setModel(sorted_);
  setSortingEnabled(true);
  sortByColumn(PeakTableModel::kTwoTheta, Qt::AscendingOrder);
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setTabKeyNavigation(false);
  verticalHeader()->hide();
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
  horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  horizontalHeader()->setStretchLastSection(true);
}

QSize PeakTable::sizeHint() const {
  constexpr int kColumns = 77;
  constexpr int kRows = 7;
  return {fontMetrics().averageCharWidth() * kColumns, verticalHeader()->defaultSectionSize() * kRows};
}

void PeakTable::SetMarks(const std::vector<MarkedPeak>& marks, double wavelength) {
  is_filling_ = true;
  peaks_->SetMarks(marks, wavelength);
  is_filling_ = false;
}

void PeakTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (is_filling_ || !current.isValid()) return;
  emit PeakChosen(peaks_->Mark(sorted_->mapToSource(current).row()).peak.two_theta);
}

QString PeakTable::CopiedText() const {
  QList<int> rows;
  for (const QModelIndex& index : selectionModel()->selectedRows()) rows.append(index.row());
  if (rows.isEmpty()) {
    for (int row = 0; row < sorted_->rowCount(); ++row) rows.append(row);
  }
  std::ranges::sort(rows);
  const auto line_of = [](const auto& text_of) {
    QStringList fields;
    for (int column = 0; column < PeakTableModel::kColumnCount; ++column) fields.append(text_of(column));
    return fields.join(QLatin1Char('\t')) + QLatin1Char('\n');
  };
  QString text = line_of([this](int column) { return sorted_->headerData(column, Qt::Horizontal).toString(); });
  for (const int row : rows) {
    text += line_of([this, row](int column) { return sorted_->index(row, column).data().toString(); });
  }
  return text;
}

void PeakTable::RemoveChosen() {
  std::vector<MarkedPeak> chosen;
  for (const QModelIndex& index : selectionModel()->selectedRows()) {
    chosen.push_back(peaks_->Mark(sorted_->mapToSource(index).row()));
  }
  for (const MarkedPeak& mark : chosen) emit RemovePeakAsked(mark);
}

void PeakTable::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) {
    QGuiApplication::clipboard()->setText(CopiedText());
  } else if (event->key() == Qt::Key_Delete) {
    RemoveChosen();
  } else {
    QTableView::keyPressEvent(event);
  }
}

}  // namespace talven
