// How the three areas of the main window stand beside each other.
#pragma once

#include <QSplitter>

#include "ui/qt/FormArea.h"
#include "ui/qt/LeaveBar.h"
#include "ui/qt/PlotArea.h"
#include "ui/qt/TextTabs.h"
#include "ui/qt/WindowState.h"

namespace talven {

/// Texts, form and plot, which never cover each other. With room enough the form stands below the texts and the plot
/// beside both; in a low window the form stands beside the texts; in a small one the plot is a tab of the texts.
class Areas : public QSplitter {
 public:
  explicit Areas(QWidget* parent = nullptr);

  TextTabs& Texts() { return *texts_; }
  FormArea& Form() { return *form_; }
  PlotArea& Plot() { return *plot_; }
  LeaveBar& Leave() { return *leave_; }

  bool HasPlotColumn() const { return indexOf(plot_) >= 0; }
  /// Gives the form the room that it needs, unless the user has moved the border.
  void FitForm();
  /// Where a message box covers nothing that it speaks of.
  QWidget* MessagePlace();
  /// Brings the plot to the front where it is a tab.
  void ShowPlot();

  void Restore(const WindowState& state);
  void Save(WindowState& state) const;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Arrange();
  void PlacePlot(bool in_column);
  std::string BorderName() const;
  void WidenForForm();
  /// What the form gets of the height or of the width that it shares with the texts.
  int FormHeight(int room);
  int FormWidth(int room);

  QSplitter* talk_;
  TextTabs* texts_;
  QWidget* form_column_;
  LeaveBar* leave_;
  FormArea* form_;
  PlotArea* plot_;
  /// Sizes beside borders that the user has moved, by the name of the arrangement.
  std::map<std::string, QList<int>> moved_;
};

}  // namespace talven
