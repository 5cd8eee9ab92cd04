// The commands of a plot, its tool bar, and the menus that a window makes of them.
#include <QInputDialog>
#include <QMenu>

#include "ui/plot/PlotParts.h"

namespace talven {

void PlotWidget::MakeActions() {
  Parts& p = *parts_;
  const auto make = [this](const QString& text, const char* name, const QKeySequence& keys, const auto& act) {
    auto* const action = new QAction(text, this);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(action, &QAction::triggered, this, act);
    addAction(action);
    return action;
  };
  p.open = make(tr("&Open..."), "open", QKeySequence::Open, [this] { AskOpen(false); });
  p.overlay = make(tr("Add &Overlay..."), "overlay", QKeySequence("Ctrl+Shift+O"), [this] { AskOpen(true); });
  p.remove_overlays = make(tr("&Remove Overlays"), "removeOverlays", {}, [this] {
    parts_->model.RemoveOverlays();
    Redraw(false);
  });
  p.ranking = make(tr("Open a Ran&king..."), "ranking", {}, [this] { AskRanking(); });
  p.export_plot = make(tr("&Export..."), "export", QKeySequence("Ctrl+E"), [this] { AskExport(); });
  p.show_all = make(tr("Show &All"), "showAll", {}, [this] { parts_->canvas->ShowAll(); });
  p.fit_height = make(tr("&Fit Height"), "fitHeight", {}, [this] { parts_->canvas->FitHeight(); });
  p.zoom_in = make(tr("Zoom &In"), "zoomIn", {}, [this] { parts_->canvas->ZoomAlong(1.5); });
  p.zoom_out = make(tr("Zoom &Out"), "zoomOut", {}, [this] { parts_->canvas->ZoomAlong(1 / 1.5); });
  p.wavelength = make(tr("&Wavelength..."), "wavelength", {}, [this] { AskWavelength(); });
  p.save_peaks = make(tr("&Save Peaks..."), "savePeaks", QKeySequence::Save, [this] { AskSavePeaks(); });
  p.compare = make(tr("&Compare with a Peak List..."), "compare", QKeySequence("Ctrl+M"), [this] { AskCompare(); });
  p.band = make(tr("Zoom by &Band"), "band", {}, [] {});
  p.band->setCheckable(true);
  connect(p.band, &QAction::toggled, p.canvas, &PlotCanvas::SetZoomsByBand);
  p.difference = make(tr("&Difference"), "difference", {}, [] {});
  p.difference->setCheckable(true);
  connect(p.difference, &QAction::toggled, this, [this](bool shown) {
    PlotSettings settings = parts_->model.Settings();
    settings.shows_difference = shown;
    ApplySettings(settings);
  });
  p.peaks = make(tr("&Peaks"), "peaks", QKeySequence("Ctrl+P"), [] {});
  p.peaks->setCheckable(true);
  connect(p.peaks, &QAction::toggled, this, &PlotWidget::ShowPeaks);
  p.undo_peak = p.undo.createUndoAction(this, tr("Undo"));
  p.redo_peak = p.undo.createRedoAction(this, tr("Redo"));
  p.undo_peak->setShortcut(QKeySequence::Undo);
  p.redo_peak->setShortcuts({QKeySequence("Ctrl+Shift+Z"), QKeySequence("Ctrl+Y")});
  for (QAction* const action : {p.undo_peak, p.redo_peak}) {
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    addAction(action);
  }
  p.difference->setToolTip(tr("The pattern minus the first overlay, below it"));
  p.band->setToolTip(tr("Dragging zooms to a band; without this, Shift and dragging does"));
  p.peaks->setToolTip(tr("Background, picked peaks and their table"));
}

void PlotWidget::MakeToolBar() {
  Parts& p = *parts_;
  const auto add_box = [&p, this](const char* name, const QString& told, const QStringList& entries) {
    auto* const box = new QComboBox(p.tools);
    box->setObjectName(QLatin1String(name));
    box->setAccessibleName(told);
    box->setToolTip(told);
    box->addItems(entries);
    p.tools->addWidget(box);
    connect(box, &QComboBox::currentIndexChanged, this, [this] {
      PlotSettings settings = parts_->model.Settings();
      settings.along = static_cast<AlongUnit>(parts_->along->currentIndex());
      settings.up = static_cast<UpScale>(parts_->up->currentIndex());
      settings.arrangement = static_cast<Arrangement>(parts_->arrangement->currentIndex());
      ApplySettings(settings);
    });
    return box;
  };
  p.tools->setToolButtonStyle(Qt::ToolButtonTextOnly);
  for (QAction* const action : {p.open, p.overlay}) p.tools->addAction(action);
  p.tools->addSeparator();
  p.along = add_box("along", tr("Horizontal axis"), {tr("2θ"), tr("d"), tr("Q")});
  p.up = add_box("up", tr("Vertical scale"), {tr("Linear"), tr("Square root"), tr("Logarithm")});
  p.arrangement =
      add_box("arrangement", tr("Arrangement of the curves"), {tr("As measured"), tr("Normalised"), tr("Stacked")});
  p.tools->addSeparator();
  for (QAction* const action : {p.difference, p.band, p.show_all, p.peaks, p.export_plot}) {
    p.tools->addAction(action);
  }
}

void PlotWidget::AskWavelength() {
  bool is_given = false;
  const double value = QInputDialog::getDouble(this, tr("Wavelength"), tr("Å, for patterns that tell none:"),
                                               parts_->model.Wavelength(), 0.01, 20.0, 5, &is_given);
  if (is_given) GiveWavelength(value);
}

void PlotWidget::FillMenus(QMenu& file, QMenu& view, QMenu& peaks) {
  const Parts& p = *parts_;
  file.addActions({p.open, p.overlay});
  QMenu* const earlier = file.addMenu(tr("Overlay an &Earlier Pattern"));
  connect(earlier, &QMenu::aboutToShow, this, [this, earlier] { FillEarlier(*earlier); });
  file.addActions({p.remove_overlays, p.ranking});
  file.addSeparator();
  file.addActions({p.export_plot, p.save_peaks});
  view.addActions({p.show_all, p.fit_height, p.zoom_in, p.zoom_out, p.band, p.difference, p.wavelength});
  peaks.addActions({p.peaks, p.undo_peak, p.redo_peak, p.save_peaks, p.compare});
}

void PlotWidget::GiveUpOpenKeys() {
  parts_->open->setShortcut({});
}

void PlotWidget::FillEarlier(QMenu& menu) {
  menu.clear();
  for (const PlotSeries& series : parts_->model.Earlier()) {
    QString name = QString::fromStdString(series.origin.empty() ? series.title : series.origin);
    QAction* const action = menu.addAction(name.replace(QLatin1Char('&'), QLatin1String("&&")));
    connect(action, &QAction::triggered, this, [this, series] { Overlay(series); });
  }
  if (menu.isEmpty()) menu.addAction(tr("None yet"))->setEnabled(false);
}

}  // namespace talven
