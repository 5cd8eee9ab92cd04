#include "app/desktop/WindowPlot.h"

#include "ui/qt/MainWindow.h"

#ifdef TALVEN_PLOT
#include <QMenu>

#include "ui/plot/PlotHelp.h"
#include "ui/plot/PlotWidget.h"
#include "ui/qt/RunFiles.h"
#endif

namespace talven {

#ifdef TALVEN_PLOT

namespace {

void FillMenus(MainWindow& window, PlotWidget& plot) {
  QMenu& file = window.AddMenu("P&lot");
  QMenu& peaks = window.AddMenu("&Peaks");
  window.ViewMenu().addSeparator();
  plot.FillMenus(file, window.ViewMenu(), peaks);
  plot.GiveUpOpenKeys();
  window.HelpMenu().addAction("Mouse and &Keys in the Plot", &window, [&window] { ShowPlotKeys(&window); });
}

}  // namespace

void PutPlotInto(MainWindow& window) {
  auto* const plot = new PlotWidget;
  plot->setAccessibleName("Plot");
  window.SetPlot(plot, PatternEndings());
  window.SetCredits(PlotCredits());
  FillMenus(window, *plot);
  QObject::connect(&window, &MainWindow::PatternToShow, plot, [&window, plot](const QString& path) {
    // By its ending it may be a pattern, as a CIF is; if it is none it is read as a text.
    if (!plot->OpenFile(path) && !IsPatternFile(path)) window.Texts().OpenText(path);
  });
}

#else

void PutPlotInto(MainWindow& window) {
  window.Plot().SetEmptyText("This build has no plot, for it was made without QCustomPlot.");
}

#endif

}  // namespace talven
