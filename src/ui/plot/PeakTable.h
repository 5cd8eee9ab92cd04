// The peaks as a table that sorts and copies.
#pragma once

#include <QAbstractTableModel>
#include <QTableView>
#include <vector>

#include "ui/plot/model/PeakPicker.h"

class QSortFilterProxyModel;

namespace talven {

class PeakTableModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column { kTwoTheta, kD, kHeight, kShare, kWidth, kOrigin, kColumnCount };
  /// The value as a number, to sort by.
  static constexpr int kSortRole = Qt::UserRole;

  using QAbstractTableModel::QAbstractTableModel;

  /// Wavelength in Angstrom.
  void SetMarks(const std::vector<MarkedPeak>& marks, double wavelength);
  const MarkedPeak& Mark(int row) const { return marks_[static_cast<std::size_t>(row)]; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  double Number(const MarkedPeak& mark, int column) const;
  QString Text(const MarkedPeak& mark, int column) const;

  std::vector<MarkedPeak> marks_;
  double wavelength_ = 0.0;
  double highest_ = 0.0;
};

/// Ctrl+C copies the chosen rows, or all where none is chosen, as lines with tabs; Delete asks for their removal.
class PeakTable : public QTableView {
  Q_OBJECT

 public:
  explicit PeakTable(QWidget* parent = nullptr);

  void SetMarks(const std::vector<MarkedPeak>& marks, double wavelength);
  /// As it stands in the table, with a head.
  QString CopiedText() const;
  QSize sizeHint() const override;

 signals:
  void PeakChosen(double two_theta);
  void RemovePeakAsked(const talven::MarkedPeak& mark);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

 private:
  void RemoveChosen();

  PeakTableModel* peaks_;
  QSortFilterProxyModel* sorted_;
  bool is_filling_ = false;
};

}  // namespace talven
