// The command line of talven-view.
#pragma once

#include <QSize>
#include <QString>
#include <QStringList>
#include <optional>

#include "peaks/PickPeaks.h"
#include "ui/plot/model/PlotModel.h"

namespace talven {

enum class ViewTask { kShow, kExport, kPick, kHelp, kVersion };

struct ViewOptions {
  ViewTask task = ViewTask::kShow;
  /// Patterns, the first being the one that the others are laid over; a name alone may be a job.
  QStringList files;
  /// Of an export.
  QString output;
  QSize size{1000, 600};
  PlotSettings settings;
  bool shows_peaks = false;
  /// A table of a screening, and which of its rows, from 1, stands below the first file.
  QString ranking;
  int ranking_row = 1;
  PeakOptions peaks;
};

/// What is wrong with the arguments, for people.
struct ViewOptionsError {
  QString text;
};

/// The arguments without the program's name. Throws ViewOptionsError.
ViewOptions ParseViewOptions(const QStringList& arguments);

/// How the program is called.
QString ViewUsage();

}  // namespace talven
