// What a plot reads and writes.
#include <QDir>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMimeData>
#include <QTime>
#include <QUrl>

#include "comparison/ComparePeakLists.h"
#include "comparison/ComparisonSettings.h"
#include "comparison/PeakListFile.h"
#include "patterns/PatternFormats.h"
#include "peaks/PeakListFile.h"
#include "screening/ComparisonScores.h"
#include "textio/FatalIoError.h"
#include "textio/InputFile.h"
#include "textio/OutputFile.h"
#include "ui/plot/PlotExport.h"
#include "ui/plot/PlotHelp.h"
#include "ui/plot/PlotParts.h"
#include "ui/plot/PlotText.h"
#include "ui/plot/RankingDialog.h"

namespace talven {
namespace {

/// A PNG is as fine as this times the screen, for paper.
constexpr double kPngScale = 2.0;

QString PatternFilter() {
  QStringList globs;
  for (const QString& ending : PatternEndings()) globs << "*." + ending.toLower() << "*." + ending;
  return PlotWidget::tr("Patterns (%1);;All files (*)").arg(globs.join(QLatin1Char(' ')));
}

/// Folder, name and the present time: the next run may write the same file anew.
QString OriginOf(const QFileInfo& place) {
  return PlotWidget::tr("%1/%2, %3")
      .arg(place.absoluteDir().dirName(), place.fileName(), QTime::currentTime().toString(QStringLiteral("HH:mm:ss")));
}

}  // namespace

std::optional<PlotSeries> PlotWidget::Read(const QString& path) {
  try {
    PatternFile file = ReadPatternFile(std::filesystem::path(path.toStdU16String()));
    QStringList notices;
    for (const std::string& notice : file.notices) notices << QString::fromStdString(notice);
    ShowMessage(notices.join(QLatin1Char(' ')));
    const QFileInfo place(path);
    return PlotSeries{place.completeBaseName().toStdString(), std::move(file.pattern), OriginOf(place).toStdString()};
  } catch (const FatalIoError& error) {
    ShowMessage(QString::fromUtf8(error.what()));
    return std::nullopt;
  }
}

bool PlotWidget::OpenFile(const QString& path) {
  auto series = Read(path);
  if (!series) return false;
  Show(std::move(*series), QFileInfo(path).absolutePath());
  return true;
}

bool PlotWidget::OverlayFile(const QString& path) {
  if (parts_->model.IsEmpty()) return OpenFile(path);
  auto series = Read(path);
  if (!series) return false;
  Overlay(std::move(*series));
  return true;
}

void PlotWidget::AskOpen(bool as_overlay) {
  const QString title = as_overlay ? tr("Add an overlay") : tr("Open a pattern");
  const QStringList paths =
      as_overlay ? QFileDialog::getOpenFileNames(this, title, parts_->folder, PatternFilter())
                 : QStringList{QFileDialog::getOpenFileName(this, title, parts_->folder, PatternFilter())};
  for (const QString& path : paths) {
    if (!path.isEmpty()) as_overlay ? OverlayFile(path) : OpenFile(path);
  }
}

void PlotWidget::AskRanking() {
  const QString path = QFileDialog::getOpenFileName(this, tr("Open a ranking"), parts_->folder,
                                                    tr("Tables (*.tsv *.txt);;All files (*)"));
  if (!path.isEmpty()) OpenRanking(path);
}

bool PlotWidget::OpenRanking(const QString& path, int row) {
  if (parts_->model.IsEmpty()) {
    ShowMessage(tr("Open the measured pattern first: a ranking stands below it."));
    return false;
  }
  const QFileInfo place(path);
  const QString folder = place.absolutePath();
  try {
    InputFile file;
    file.OpenRequired(Folder(std::filesystem::path(folder.toStdU16String())), place.fileName().toStdString());
    const std::vector<RankingRow> rows = ReadRanking(file);
    if (row < 1 || static_cast<std::size_t>(row) > rows.size()) {
      ShowMessage(tr("%1: there is no row %2.").arg(place.fileName()).arg(row));
      return false;
    }
    auto* const dialog = new RankingDialog(place.fileName(), rows, this);
    connect(dialog, &RankingDialog::RowChosen, this,
            [this, rows, folder](int chosen) { ShowRankingRow(rows[static_cast<std::size_t>(chosen)], folder); });
    dialog->show();
    ShowMessage({});
    dialog->Choose(row - 1);
  } catch (const FatalIoError& error) {
    ShowMessage(QString::fromUtf8(error.what()));
  }
  return Message().isEmpty();
}

bool PlotWidget::ShowRankingRow(const RankingRow& row, const QString& folder) {
  const QString name = QString::fromStdString(row.candidate);
  const QString beside = QDir(folder).filePath(name);
  PlotModel& model = parts_->model;
  try {
    const QString path = QFileInfo::exists(beside) ? beside : name;
    model.ShowSticks(SticksOf(row, path.toStdString(), model.Series().front().pattern, model.Wavelength()));
  } catch (const FatalIoError& error) {
    ShowMessage(QString::fromUtf8(error.what()));
    return false;
  }
  ShowMessage({});
  Redraw(true);
  return true;
}

bool PlotWidget::ExportTo(const QString& path, std::optional<QSize> size) {
  Parts& p = *parts_;
  try {
    if (IsDataName(path)) {
      ExportData(p.model, path);
    } else if (!IsPictureName(path)) {
      ShowMessage(tr("%1: a name that ends in .png, .svg, .pdf or .xy is needed.").arg(path));
      return false;
    } else if (!ExportPicture(*p.canvas, path, size.value_or(p.canvas->size()), kPngScale)) {
      ShowMessage(tr("%1 cannot be written.").arg(path));
      return false;
    }
  } catch (const FatalIoError& error) {
    ShowMessage(QString::fromUtf8(error.what()));
    return false;
  }
  return true;
}

void PlotWidget::AskExport() {
  const QString name = QString::fromStdString(parts_->model.Series().front().title);
  const QString path = QFileDialog::getSaveFileName(this, tr("Export the plot"), parts_->folder + "/" + name + ".png",
                                                    tr("Pictures and data (*.png *.svg *.pdf *.xy);;All files (*)"));
  if (!path.isEmpty() && ExportTo(path)) ShowMessage(tr("%1 is written.").arg(QFileInfo(path).fileName()));
}

QString PlotWidget::PeakListPath() const {
  if (parts_->model.IsEmpty()) return {};
  const QString name = QString::fromStdString(parts_->model.Series().front().title);
  const QString suffix = QString::fromLatin1(kPeakListSuffix.data(), static_cast<qsizetype>(kPeakListSuffix.size()));
  return (parts_->folder.isEmpty() ? QString() : parts_->folder + "/") + name + suffix;
}

bool PlotWidget::SavePeaksTo(const QString& path) {
  Parts& p = *parts_;
  ShowPeaks(true);
  try {
    OutputFile file;
    const QFileInfo place(path);
    file.Open(Folder(std::filesystem::path(place.absolutePath().toStdU16String())), place.fileName().toStdString());
    WritePeakList(p.picker.Listed(), p.picker.Wavelength(), file);
    file.Close();
  } catch (const FatalIoError& error) {
    ShowMessage(QString::fromUtf8(error.what()));
    return false;
  }
  ShowMessage(tr("%1 peaks are saved in %2.").arg(p.picker.Listed().size()).arg(QFileInfo(path).fileName()));
  emit PeaksSaved(path);
  return true;
}

bool PlotWidget::ComparePeaksWith(const QString& path) {
  Parts& p = *parts_;
  ShowPeaks(true);
  const QFileInfo place(path);
  try {
    InputFile file;
    file.OpenRequired(Folder(std::filesystem::path(place.absolutePath().toStdU16String())),
                      place.fileName().toStdString());
    const float wavelength = ReadWavelength(file);
    PeakList reference;
    ReadPeakList(file, reference);
    ComparisonSettings settings;
    // What the form of the comparison starts with: its field refuses the start value and keeps its own.
    settings.SAF = 0.25F;
    const auto score = ComparePeakLists(reference, wavelength, ListOf(p.picker.Listed()), settings);
    if (!score) {
      ShowMessage(tr("%1: one of the two lists has no peak.").arg(place.fileName()));
      return false;
    }
    ShowMessage(tr("Against %1: M1 %2, M2 %3, BMATCH %4; without a partner %5 of %6 peaks there and %7 of %8 here.")
                    .arg(place.fileName(), Fixed(score->RMATCH, 4), Fixed(score->M2, 4), Fixed(score->BMATCH, 3))
                    .arg(score->NotMatchedR)
                    .arg(score->reference_count)
                    .arg(score->NotMatchedS)
                    .arg(score->sample_count));
  } catch (const FatalIoError& error) {
    ShowMessage(QString::fromUtf8(error.what()));
    return false;
  }
  return true;
}

void PlotWidget::AskCompare() {
  const QString path = QFileDialog::getOpenFileName(this, tr("Compare with the peaks of"), parts_->folder,
                                                    tr("Peak lists (*.LST *.lst);;All files (*)"));
  if (!path.isEmpty()) ComparePeaksWith(path);
}

void PlotWidget::AskSavePeaks() {
  const QString path =
      QFileDialog::getSaveFileName(this, tr("Save the peaks"), PeakListPath(), tr("Peak lists (*.LST);;All files (*)"));
  if (!path.isEmpty()) SavePeaksTo(path);
}

void PlotWidget::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void PlotWidget::dropEvent(QDropEvent* event) {
  // The first file is the pattern, further ones lie over it.
  bool is_first = true;
  for (const QUrl& url : event->mimeData()->urls()) {
    if (!url.isLocalFile()) continue;
    is_first ? OpenFile(url.toLocalFile()) : OverlayFile(url.toLocalFile());
    is_first = false;
  }
}

}  // namespace talven
