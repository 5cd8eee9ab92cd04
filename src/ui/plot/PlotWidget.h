// A plot with all that belongs to it, for any window: drawing, tools, the cursor's reading and the panel of peaks.
#pragma once

#include <QSize>
#include <QString>
#include <QWidget>
#include <memory>
#include <optional>

#include "crystal/Pattern.h"
#include "ui/plot/model/PlotModel.h"

class QMenu;

namespace talven {

struct PeakChoices;
struct PeakOptions;
struct RankingRow;

class PlotWidget : public QWidget {
  Q_OBJECT

 public:
  explicit PlotWidget(QWidget* parent = nullptr);
  ~PlotWidget() override;

  /// Shows a pattern in place of the one before, which stays at hand as an overlay. `folder` is where exports and peak
  /// lists are proposed, under the title's name.
  void ShowPattern(const QString& title, Pattern pattern, const QString& folder = {});
  void AddOverlay(const QString& title, Pattern pattern);

  /// Reads any file with a pattern. What went wrong stands in the message line, and false comes back.
  bool OpenFile(const QString& path);
  bool OverlayFile(const QString& path);
  /// Reads a screening's ranking and shows its rows in a window beside; the first, or `row` (from 1), stands below the
  /// pattern. Candidates are looked for from the table's folder, then from the current one.
  bool OpenRanking(const QString& path, int row = 1);
  /// Of the last thing that went wrong or was noticed; empty if nothing was.
  QString Message() const;

  void ApplySettings(const PlotSettings& settings);
  void ShowPeaks(bool shown);
  /// Shows peaks that were picked with these options.
  void PickPeaksWith(const PeakOptions& options);
  /// Angstrom, for patterns that tell no wavelength.
  void GiveWavelength(double wavelength);
  /// Writes what is in view as PNG, SVG or PDF, or the data as XY, by the extension. A size in pixels of the screen,
  /// the present one where none is given.
  bool ExportTo(const QString& path, std::optional<QSize> size = {});
  /// Writes the listed peaks.
  bool SavePeaksTo(const QString& path);
  /// Tells the comparison's scores of the listed peaks against a peak list, the reference, with the settings that it
  /// starts with.
  bool ComparePeaksWith(const QString& path);
  /// TITLE.peaks.LST in the pattern's folder.
  QString PeakListPath() const;

  /// Adds this plot's commands to the menus of a window.
  void FillMenus(QMenu& file, QMenu& view, QMenu& peaks);
  /// The window has a use of its own for the keys of Open.
  void GiveUpOpenKeys();

 signals:
  /// The title of what is shown.
  void TitleChanged(const QString& title);
  void PeaksSaved(const QString& path);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  struct Parts;

  void MakeParts();
  void MakeActions();
  void MakeToolBar();
  void ConnectParts();
  void Show(PlotSeries series, const QString& folder);
  void Overlay(PlotSeries series);
  std::optional<PlotSeries> Read(const QString& path);
  void Redraw(bool keeps_view);
  void PreparePeaks();
  void ChangePeaks(const QString& text, const PeakChoices& choices, int kind = -1);
  void ShowReading();
  void ShowMessage(const QString& text);
  void AskOpen(bool as_overlay);
  void AskWavelength();
  void AskRanking();
  bool ShowRankingRow(const RankingRow& row, const QString& folder);
  void AskExport();
  void AskSavePeaks();
  void AskCompare();
  void FillEarlier(QMenu& menu);

  std::unique_ptr<Parts> parts_;
};

}  // namespace talven
