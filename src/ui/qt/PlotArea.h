// The part of the main window that shows patterns.
#pragma once

#include <QLabel>
#include <QStackedWidget>

namespace talven {

/// A place for the plot, which is put here from outside, since this folder knows no patterns.
class PlotArea : public QStackedWidget {
 public:
  explicit PlotArea(QWidget* parent = nullptr);

  /// What stands here as long as there is no plot.
  void SetEmptyText(const QString& text) { empty_->setText(text); }
  /// Takes over a widget as the plot.
  void SetPlot(QWidget* plot);
  bool HasPlot() const { return count() > 1; }

 private:
  QLabel* empty_;
};

}  // namespace talven
