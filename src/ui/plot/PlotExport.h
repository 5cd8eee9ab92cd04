// A plot as a picture, and the data behind it.
#pragma once

#include <QSize>
#include <QString>

#include "ui/plot/model/PlotModel.h"

namespace talven {

class PlotCanvas;

/// Kinds of file, by their extension.
bool IsPictureName(const QString& path);
bool IsDataName(const QString& path);

/// Writes what is in view as PNG, SVG or PDF, by the extension, in the colours for paper. `size` is in pixels of the
/// screen; `scale` makes a PNG finer. False if the file cannot be written.
bool ExportPicture(PlotCanvas& canvas, const QString& path, QSize size, double scale);

/// Writes the pattern as XY, each overlay as NAME.2.xy and so on beside it. Throws FatalIoError.
void ExportData(const PlotModel& model, const QString& path);

}  // namespace talven
