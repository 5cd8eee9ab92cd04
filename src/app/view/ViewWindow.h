// The window of talven-view: a plot with menus.
#pragma once

#include <QMainWindow>

namespace talven {

class PlotWidget;

class ViewWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit ViewWindow(QWidget* parent = nullptr);

  PlotWidget& Plot() { return *plot_; }

 private:
  void MakeMenus();
  void ShowAbout();

  PlotWidget* plot_;
};

}  // namespace talven
