// What a PlotWidget is made of; for its own sources alone.
#pragma once

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QSplitter>
#include <QToolBar>
#include <QUndoStack>

#include "ui/plot/PeakPanel.h"
#include "ui/plot/PlotCanvas.h"
#include "ui/plot/PlotWidget.h"

namespace talven {

struct PlotWidget::Parts {
  PlotModel model;
  PeakPicker picker;
  /// False until the picker has seen the present pattern: it looks only when peaks are shown.
  bool is_picked = false;
  QUndoStack undo;
  QString folder;

  QToolBar* tools = nullptr;
  QComboBox* along = nullptr;
  QComboBox* up = nullptr;
  QComboBox* arrangement = nullptr;
  QSplitter* splitter = nullptr;
  PlotCanvas* canvas = nullptr;
  PeakPanel* panel = nullptr;
  QLabel* reading = nullptr;
  QLabel* message = nullptr;

  QAction* open = nullptr;
  QAction* overlay = nullptr;
  QAction* remove_overlays = nullptr;
  QAction* ranking = nullptr;
  QAction* export_plot = nullptr;
  QAction* difference = nullptr;
  QAction* show_all = nullptr;
  QAction* fit_height = nullptr;
  QAction* zoom_in = nullptr;
  QAction* zoom_out = nullptr;
  QAction* band = nullptr;
  QAction* wavelength = nullptr;
  QAction* peaks = nullptr;
  QAction* undo_peak = nullptr;
  QAction* redo_peak = nullptr;
  QAction* save_peaks = nullptr;
  QAction* compare = nullptr;
};

}  // namespace talven
