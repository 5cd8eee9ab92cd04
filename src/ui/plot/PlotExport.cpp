#include "ui/plot/PlotExport.h"

#include <QFile>
#include <QFileInfo>
#include <QSvgGenerator>

#include "patterns/PatternFormats.h"
#include "textio/OutputFile.h"
#include "ui/plot/PlotCanvas.h"

namespace talven {
namespace {

QString Extension(const QString& path) {
  return QFileInfo(path).suffix().toLower();
}

/// A link in the place of an output may be somebody else's: it gives way, and what it points to stays.
void RemoveLink(const QString& path) {
  if (QFileInfo(path).isSymbolicLink()) QFile::remove(path);
}

bool WriteSvg(PlotCanvas& canvas, const QString& path, QSize size) {
  QSvgGenerator svg;
  svg.setFileName(path);
  svg.setSize(size);
  svg.setViewBox(QRect(QPoint(0, 0), size));
  svg.setTitle(canvas.accessibleName());
  svg.setDescription(canvas.accessibleDescription());
  QCPPainter painter;
  if (!painter.begin(&svg)) return false;
  painter.setMode(QCPPainter::pmVectorized);
  painter.setMode(QCPPainter::pmNoCaching);
  painter.setPen(Qt::NoPen);
  painter.fillRect(QRect(QPoint(0, 0), size), canvas.Colours().ground);
  canvas.toPainter(&painter, size.width(), size.height());
  return painter.end();
}

bool WritePicture(PlotCanvas& canvas, const QString& path, QSize size, double scale) {
  RemoveLink(path);
  if (Extension(path) == "svg") return WriteSvg(canvas, path, size);
  if (Extension(path) == "pdf") return canvas.savePdf(path, size.width(), size.height());
  return canvas.toPixmap(size.width(), size.height(), scale).save(path);
}

void WriteXy(const Pattern& pattern, const QString& path) {
  RemoveLink(path);
  OutputFile file;
  const QFileInfo place(path);
  file.Open(Folder(std::filesystem::path(place.absolutePath().toStdU16String())), place.fileName().toStdString(),
            Spelling::kExact);
  WritePatternAs(PatternFormat::kXy, pattern, {}, file);
  file.Close();
}

}  // namespace

bool IsPictureName(const QString& path) {
  return QStringList{"png", "svg", "pdf"}.contains(Extension(path));
}

bool IsDataName(const QString& path) {
  return Extension(path) == "xy";
}

bool ExportPicture(PlotCanvas& canvas, const QString& path, QSize size, double scale) {
  const PlotColours colours = canvas.Colours();
  const std::optional<double> cursor = canvas.Cursor();
  canvas.SetColours(LightColours());
  canvas.SetCursor(std::nullopt);
  canvas.FillCurves(size.width(), scale);
  const bool is_written = WritePicture(canvas, path, size, scale);
  canvas.SetColours(colours);
  canvas.SetCursor(cursor);
  canvas.replot();
  return is_written;
}

void ExportData(const PlotModel& model, const QString& path) {
  const QString stem = path.left(path.size() - Extension(path).size() - 1);
  for (std::size_t i = 0; i < model.Series().size(); ++i) {
    WriteXy(model.Series()[i].pattern, i == 0 ? path : QString("%1.%2.xy").arg(stem).arg(i + 1));
  }
}

}  // namespace talven
