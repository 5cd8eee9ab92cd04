// Every state of the plot on light and dark ground: nothing is cut off, and tools/make-pictures keeps the pictures.
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QStyleFactory>
#include <QTest>
#include <algorithm>
#include <cmath>

#include "crystal/ScatteringTables.h"
#include "support/TestFiles.h"
#include "support/qt/UserScript.h"
#include "ui/plot/MadePattern.h"
#include "ui/plot/PlotCanvas.h"
#include "ui/plot/PlotWidget.h"

namespace talven::test {
namespace {

QPalette DarkPalette() {
  QPalette palette(QColor(0x2b, 0x2f, 0x35), QColor(0x2b, 0x2f, 0x35));
  palette.setColor(QPalette::Base, QColor(0x1b, 0x1e, 0x22));
  palette.setColor(QPalette::ToolTipBase, QColor(0x3c, 0x42, 0x4a));
  palette.setColor(QPalette::ToolTipText, QColor(0xe6, 0xe6, 0xe6));
  palette.setColor(QPalette::Highlight, QColor(0x3d, 0x6f, 0xb4));
  return palette;
}

/// Into the folder that $TALVEN_SCREENSHOTS names, if it is set.
void SavePicture(QWidget& window, const QString& name) {
  const QString folder = qEnvironmentVariable("TALVEN_SCREENSHOTS");
  if (folder.isEmpty()) return;
  EXPECT_TRUE(window.grab().save(folder + '/' + name + ".png"));
}

using Prepare = std::function<void(PlotWidget&)>;

void Set(PlotWidget& plot, const PlotSettings& settings) { plot.ApplySettings(settings); }

/// Title, and how the plot comes there from a pattern with reflections.
const std::vector<std::pair<const char*, Prepare>>& States() {
  static const std::vector<std::pair<const char*, Prepare>> states = {
      {"pattern", [](PlotWidget&) {}},
      {"peaks", [](PlotWidget& plot) { plot.ShowPeaks(true); }},
      {"logarithm",
       [](PlotWidget& plot) {
         Set(plot, {AlongUnit::kQ, UpScale::kLogarithm, {}, false});
       }},
      {"d-sqrt",
       [](PlotWidget& plot) {
         Set(plot, {AlongUnit::kD, UpScale::kSquareRoot, {}, false});
       }},
      {"stacked",
       [](PlotWidget& plot) {
         for (unsigned i = 2; i < 7; ++i) plot.AddOverlay("SAMPLE " + QString::number(i), MadePattern(i, 1.0 / i));
         Set(plot, {{}, UpScale::kSquareRoot, Arrangement::kStacked, false});
       }},
      {"difference",
       [](PlotWidget& plot) {
         plot.AddOverlay("CALCULATED", MadePattern(2, 0.9));
         Set(plot, {{}, {}, Arrangement::kAsMeasured, true});
       }},
      {"ranking",
       [](PlotWidget& plot) {
         WriteFile("SILICON.ins",
                   "TITL silicon\nCELL 1.54056 5.40 5.40 5.40 90 90 90\nZERR 8 0 0 0 0 0 0\nLATT 4\nSFAC SI\nUNIT 8\n"
                   "SI1 1 0.125 0.125 0.125 11 0.02\nHKLF 4\nEND\n");
         WriteFile("ranking.tsv",
                   "rank\tcandidate\tscore\ta\tb\tc\talpha\tbeta\tgamma\tnote\n"
                   "1\tSILICON.ins\t0.9921\t5.4309\t5.4309\t5.4309\t90\t90\t90\t\n");
         EXPECT_TRUE(plot.OpenRanking("ranking.tsv")) << plot.Message().toStdString();
       }},
      {"companions-and-hand",
       [](PlotWidget& plot) {
         Pattern pattern = MadePattern();
         const Pattern lines = MadePattern(1, 0.5);
         // Both lines of copper: the second one at longer wavelength and half as high.
         for (std::size_t i = 0; i < pattern.PointCount(); ++i) {
           const double angle = TwoThetaAt(AlongUnit::kD, AlongValue(AlongUnit::kD, pattern.two_theta[i], 1.544426),
                                           *pattern.wavelength);
           const auto point = static_cast<std::size_t>(std::max(std::lround((angle - 20.0) / 0.02), 0L));
           pattern.counts[i] += lines.counts[point] - 100.0;
         }
         plot.ShowPattern("SILICON", pattern);
         plot.ShowPeaks(true);
         auto& canvas = *plot.findChild<PlotCanvas*>();
         emit canvas.AddPeakAsked(62.0);
         canvas.SetView({55.0, 80.0}, {0.0, 1500.0});
       }},
      {"many-reflections",
       [](PlotWidget& plot) {
         Pattern pattern = MadePattern();
         for (std::size_t i = 0; i < 400; ++i) {
           const int h = static_cast<int>(i) % 13;
           pattern.reflections.push_back({i * i / 50 + 10 * (i % 3), -h, 10 + h, static_cast<int>(i) / 13});
         }
         std::ranges::sort(pattern.reflections, {}, [](const auto& reflection) { return reflection.point; });
         plot.ShowPattern("SILICON", pattern);
       }},
      {"narrow",
       [](PlotWidget& plot) {
         plot.resize(620, 600);
         plot.ShowPeaks(true);
       }},
      {"many-curves",
       [](PlotWidget& plot) {
         for (unsigned i = 0; i < 20; ++i) plot.AddOverlay("SAMPLE " + QString::number(i), MadePattern(i, 1.0 + i));
       }},
      {"message", [](PlotWidget& plot) { plot.OpenFile("MISSING.XY"); }},
  };
  return states;
}

TEST(PlotPictures, EveryStateOnLightAndDarkGround) {
  const TestDirectory directory;
  const QPalette usual = QApplication::palette();
  for (const bool is_dark : {false, true}) {
    QApplication::setPalette(is_dark ? DarkPalette() : usual);
    for (const auto& [name, prepare] : States()) {
      if (std::string_view(name) == "ranking" && !HasScatteringTables()) continue;
      SCOPED_TRACE(name);
      PlotWidget plot;
      plot.resize(920, 560);
      plot.ShowPattern("SILICON", MadePatternWithReflections());
      plot.show();
      prepare(plot);
      auto& canvas = *plot.findChild<PlotCanvas*>();
      canvas.SetCursor(47.31);
      QTest::qWait(20);
      EXPECT_GT(canvas.axisRect()->width(), 300);
      EXPECT_GT(canvas.axisRect()->height(), 120);
      const QColor ground =
          plot.grab().toImage().pixelColor(canvas.mapTo(&plot, QPoint(2, 2)) * plot.devicePixelRatioF());
      EXPECT_EQ(ground.lightness() < 128, is_dark);
      for (const QWidget* const widget : plot.findChildren<QComboBox*>()) {
        EXPECT_GE(widget->width(), widget->minimumSizeHint().width());
      }
      SavePicture(plot, QString("plot-%1-%2").arg(name, is_dark ? "dark" : "light"));
    }
  }
  QApplication::setPalette(usual);
}

}  // namespace
}  // namespace talven::test
