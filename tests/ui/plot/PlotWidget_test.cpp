// The plot in front of a user: mouse, keys, peaks, table, files.
#include "ui/plot/PlotWidget.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QRegularExpression>
#include <QSlider>
#include <QTest>
#include <QToolBar>
#include <algorithm>

#include "comparison/PeakListFile.h"
#include "support/TestFiles.h"
#include "support/qt/UserScript.h"
#include "textio/InputFile.h"
#include "ui/plot/MadePattern.h"
#include "ui/plot/PeakTable.h"
#include "ui/plot/PlotCanvas.h"

namespace talven::test {
namespace {

struct OpenPlot {
  explicit OpenPlot(bool with_peaks = false) {
    plot.resize(900, 600);
    plot.ShowPattern("SILICON", MadePatternWithReflections());
    plot.show();
    plot.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&plot));
    canvas.setFocus();
    if (with_peaks) Key(Qt::Key_P, Qt::ControlModifier);
    canvas.replot();
  }

  template <typename T>
  T& Find(const char* name) {
    return *plot.findChild<T*>(name);
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&canvas, key, modifiers); }
  /// A point of the drawing at an angle, half way up.
  QPoint At(double two_theta) {
    return {static_cast<int>(std::lround(canvas.PixelOf(two_theta))), canvas.axisRect()->center().y()};
  }
  void Click(double two_theta) { QTest::mouseClick(&canvas, Qt::LeftButton, {}, At(two_theta)); }
  void Drag(QPoint from, QPoint to, Qt::KeyboardModifiers modifiers = {}) {
    QTest::mousePress(&canvas, Qt::LeftButton, modifiers, from);
    for (const QPoint place : {(from + to) / 2, to}) {
      QMouseEvent move(QEvent::MouseMove, place, canvas.mapToGlobal(place), Qt::NoButton, Qt::LeftButton, modifiers);
      QApplication::sendEvent(&canvas, &move);
    }
    QTest::mouseRelease(&canvas, Qt::LeftButton, modifiers, to);
  }
  void Wheel(QPoint at, Qt::KeyboardModifiers modifiers = {}) {
    QWheelEvent wheel(at, canvas.mapToGlobal(at), {}, QPoint(0, 120), Qt::NoButton, modifiers, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(&canvas, &wheel);
  }
  double Width() { return canvas.AlongRange().upper - canvas.AlongRange().lower; }
  double Height() { return canvas.UpRange().upper - canvas.UpRange().lower; }
  /// The angles in the table from the top, rounded to tenths.
  std::string Listed() {
    std::string text;
    for (int row = 0; row < table.model()->rowCount(); ++row) {
      const double angle = table.model()->index(row, 0).data().toString().toDouble();
      if (row > 0) text += ' ';
      text += QString::number(angle, 'f', 1).toStdString();
    }
    return text;
  }
  std::string Reading() { return Find<QLabel>("plotReading").text().toStdString(); }

  PlotWidget plot;
  PlotCanvas& canvas = *plot.findChild<PlotCanvas*>();
  PeakTable& table = *plot.findChild<PeakTable*>();
};

constexpr const char* kAllPeaks = "28.4 47.3 56.1 69.1 76.4";

TEST(PlotWidget, KeysMoveAndZoom) {
  OpenPlot open;
  EXPECT_EQ(open.canvas.AlongRange().lower, 20.0);
  EXPECT_EQ(open.Width(), 70.0);
  open.Key(Qt::Key_Plus);
  EXPECT_NEAR(open.Width(), 70.0 / 1.5, 1e-9);
  open.Key(Qt::Key_Right);
  EXPECT_NEAR(open.canvas.AlongRange().lower, 55.0 - 35.0 / 1.5 + 7.0 / 1.5, 1e-9);
  open.Key(Qt::Key_Minus);
  const double height = open.Height();
  open.Key(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_NEAR(open.Height(), height / 1.5, 1e-9);
  open.Key(Qt::Key_Up);
  EXPECT_GT(open.canvas.UpRange().lower, 0.0);
  open.Key(Qt::Key_Home);
  EXPECT_EQ(open.canvas.AlongRange().lower, 20.0);
  open.canvas.SetView({65.0, 80.0}, open.canvas.UpRange());
  open.Key(Qt::Key_F);
  EXPECT_LT(open.canvas.UpRange().upper, 800.0) << "as high as the peaks in view";
}

TEST(PlotWidget, TheMouseMovesAndZooms) {
  OpenPlot open;
  open.Wheel(open.At(40.0));
  EXPECT_NEAR(open.Width(), 70.0 / 1.25, 1e-9);
  EXPECT_NEAR(open.canvas.TwoThetaAtPixel(open.At(40.0).x()), 40.0, 0.1) << "what is below the mouse stays there";
  const double height = open.Height();
  open.Wheel(open.At(40.0), Qt::ControlModifier);
  EXPECT_NEAR(open.Height(), height / 1.25, 1e-9);
  const double lower = open.canvas.AlongRange().lower;
  open.Drag(open.At(50.0), open.At(45.0));
  EXPECT_NEAR(open.canvas.AlongRange().lower, lower + 5.0, 0.15);
  QTest::mouseDClick(&open.canvas, Qt::LeftButton, {}, open.At(50.0));
  EXPECT_EQ(open.Width(), 70.0);
  const int y = open.At(30.0).y();
  open.Drag(open.At(30.0), QPoint(open.At(40.0).x(), y + 50), Qt::ShiftModifier);
  EXPECT_NEAR(open.canvas.AlongRange().lower, 30.0, 0.1);
  EXPECT_NEAR(open.canvas.AlongRange().upper, 40.0, 0.1);
  EXPECT_LT(open.Height(), 1000.0);
}

TEST(PlotWidget, TheCursorReadsAnglesIntensityAndReflection) {
  OpenPlot open;
  open.Key(Qt::Key_PageDown);
  open.Key(Qt::Key_PageDown);
  EXPECT_EQ(open.Reading().substr(0, 26), "2θ 47.300°   d 1.9202 Å") << open.Reading();
  EXPECT_NE(open.Reading().find("next reflection 2 2 0 at 47.300°"), std::string::npos) << open.Reading();
  open.Key(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_NEAR(*open.canvas.Cursor(), 47.3 + 70.0 / open.canvas.axisRect()->width(), 0.01);
  QTest::mouseMove(&open.canvas, open.At(30.0));
  QTest::qWait(1);
  EXPECT_EQ(open.Reading().substr(0, 6), "2θ 30") << open.Reading();
}

TEST(PlotWidget, AxesAreChosenInTheToolBar) {
  OpenPlot open;
  QTest::keyClick(&open.Find<QComboBox>("along"), Qt::Key_Down);
  EXPECT_EQ(open.canvas.xAxis->label(), "d (Å)");
  EXPECT_NEAR(open.canvas.AlongRange().lower, 1.0893, 1e-3);
  QTest::keyClick(&open.Find<QComboBox>("up"), Qt::Key_End);
  EXPECT_EQ(open.canvas.yAxis->label(), "Intensity (counts), logarithmic scale");
  EXPECT_NEAR(open.canvas.UpRange().upper, 3.6, 0.3);
}

TEST(PlotWidget, OtherAxesShowTheSamePart) {
  OpenPlot open;
  open.canvas.SetView({40.0, 50.0}, {0.0, 300.0});
  open.Find<QComboBox>("along").setCurrentIndex(1);
  EXPECT_NEAR(open.canvas.AlongRange().lower, 1.8226, 1e-3) << "d at 50 degrees";
  EXPECT_NEAR(open.canvas.AlongRange().upper, 2.2522, 1e-3);
  EXPECT_EQ(open.canvas.UpRange().upper, 300.0);
  open.Find<QComboBox>("along").setCurrentIndex(0);
  EXPECT_NEAR(open.canvas.AlongRange().lower, 40.0, 1e-6);
  open.Find<QComboBox>("up").setCurrentIndex(1);
  EXPECT_NEAR(open.Width(), 10.0, 1e-6);
  EXPECT_NEAR(open.canvas.UpRange().upper, 50.0, 5.0) << "as high as the square root of what is in view";
}

TEST(PlotWidget, RunsOfTheSameNameAreToldApart) {
  const TestDirectory directory;
  OpenPlot open;
  QMenu file;
  QMenu other;
  open.plot.FillMenus(file, other, other);
  ASSERT_TRUE(open.plot.ExportTo("RUN.xy"));
  for (int i = 0; i < 2; ++i) EXPECT_TRUE(open.plot.OpenFile("RUN.xy"));
  auto* const earlier = file.findChild<QMenu*>();
  QMetaObject::invokeMethod(earlier, "aboutToShow");
  ASSERT_EQ(earlier->actions().size(), 2);
  const QRegularExpression with_time("^.+/RUN[.]xy, [0-9:]{8}$");
  EXPECT_TRUE(with_time.match(earlier->actions().front()->text()).hasMatch());
  earlier->actions().front()->trigger();
  EXPECT_EQ(open.canvas.Model().Series().back().title, "RUN");
  EXPECT_TRUE(with_time.match(open.canvas.graph(1)->name()).hasMatch()) << "in the legend too";
}

TEST(PlotWidget, OverlaysDifferenceAndEarlierPatterns) {
  OpenPlot open;
  QMenu file;
  QMenu other;
  open.plot.FillMenus(file, other, other);
  open.plot.ShowPattern("SECOND", MadePattern(2, 0.5));
  auto* const earlier = file.findChild<QMenu*>();
  QMetaObject::invokeMethod(earlier, "aboutToShow");
  ASSERT_EQ(earlier->actions().size(), 1);
  earlier->actions().front()->trigger();
  EXPECT_EQ(open.canvas.Model().Series().back().title, "SILICON");
  EXPECT_TRUE(open.canvas.legend->visible());
  open.plot.findChild<QAction*>("difference")->trigger();
  EXPECT_TRUE(open.canvas.Model().HasDifference());
  EXPECT_LT(open.canvas.UpRange().lower, -1500.0) << "half of the strongest peak is missing";
  QTest::keyClick(&open.Find<QComboBox>("up"), Qt::Key_End);
  EXPECT_EQ(open.plot.Message(), "A difference has no logarithm: choose another scale to see it.");
}

TEST(PlotWidget, ClicksAddRemoveAndMovePeaks) {
  OpenPlot open(true);
  EXPECT_EQ(open.Listed(), kAllPeaks);
  open.Click(40.0);
  EXPECT_EQ(open.Listed(), "28.4 40.0 47.3 56.1 69.1 76.4");
  open.Click(47.303);
  EXPECT_EQ(open.Listed(), "28.4 40.0 56.1 69.1 76.4");
  open.Drag(open.At(56.122), open.At(60.0));
  EXPECT_EQ(open.Listed(), "28.4 40.0 60.0 69.1 76.4");
  for (int i = 0; i < 3; ++i) open.Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(open.Listed(), kAllPeaks);
  open.Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(open.Listed(), "28.4 40.0 47.3 56.1 69.1 76.4");
  open.Key(Qt::Key_Z, Qt::ControlModifier);
  QTest::mouseClick(&open.canvas, Qt::LeftButton, {}, open.At(35.0));
  QTest::mouseDClick(&open.canvas, Qt::LeftButton, {}, open.At(35.0));
  EXPECT_EQ(open.Listed(), kAllPeaks) << "a double click shows all and adds none";
}

TEST(PlotWidget, KeysAddRemoveAndMovePeaks) {
  OpenPlot open(true);
  open.Key(Qt::Key_PageDown);
  open.Key(Qt::Key_PageDown);
  open.Key(Qt::Key_Delete);
  EXPECT_EQ(open.Listed(), "28.4 56.1 69.1 76.4");
  open.Key(Qt::Key_Space);
  EXPECT_EQ(open.Listed(), kAllPeaks);
  const double before = *open.canvas.Cursor();
  for (int i = 0; i < 10; ++i) open.Key(Qt::Key_Right, Qt::AltModifier);
  EXPECT_EQ(open.Listed(), "28.4 47.5 56.1 69.1 76.4");
  EXPECT_NEAR(*open.canvas.Cursor(), before + 0.2, 0.021);
  open.Key(Qt::Key_PageUp);
  EXPECT_NEAR(*open.canvas.Cursor(), 28.44, 0.02);
}

TEST(PlotWidget, SlidersPickAtOnceAndAreOneStepToUndo) {
  OpenPlot open(true);
  auto& threshold = open.Find<QSlider>("threshold");
  threshold.setValue(200);
  threshold.setValue(299);
  EXPECT_LT(open.table.model()->rowCount(), 5);
  open.Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(open.Listed(), kAllPeaks);
  EXPECT_EQ(threshold.value(), 35);
  open.Click(40.0);
  open.Find<QSlider>("width").setValue(260);
  EXPECT_FALSE(open.Find<QCheckBox>("measuredWidth").isChecked());
  EXPECT_NE(open.Listed().find("40.0"), std::string::npos) << "what was set by hand stays";
  open.Find<QCheckBox>("measuredWidth").click();
  EXPECT_EQ(open.Listed(), "28.4 40.0 47.3 56.1 69.1 76.4");
}

TEST(PlotWidget, TheTableSortsCopiesAndIsRead) {
  OpenPlot open(true);
  open.table.sortByColumn(PeakTableModel::kHeight, Qt::DescendingOrder);
  EXPECT_EQ(open.Listed(), "28.4 47.3 56.1 76.4 69.1");
  open.table.selectRow(1);
  EXPECT_NEAR(*open.canvas.Cursor(), 47.3, 0.05) << "the plot shows where the row is";
  QTest::keySequence(&open.table, QKeySequence::Copy);
  const QStringList copied = QApplication::clipboard()->text().split('\n');
  ASSERT_EQ(copied.size(), 3);
  EXPECT_EQ(copied[0].toStdString(), "2θ (°)\td (Å)\tHeight\tRel. (%)\tFWHM (°)\tOrigin");
  EXPECT_EQ(copied[1].split('\t').size(), 6);
  EXPECT_NEAR(copied[1].split('\t')[1].toDouble(), 1.9201, 0.001);
  QTest::keyClick(&open.table, Qt::Key_Delete);
  EXPECT_EQ(open.Listed(), "28.4 56.1 76.4 69.1");
  const auto* const table = QAccessible::queryAccessibleInterface(&open.table);
  EXPECT_EQ(table->text(QAccessible::Name), "Peak table");
  EXPECT_EQ(const_cast<QAccessibleInterface*>(table)->tableInterface()->rowCount(), 4);
  const auto* const drawing = QAccessible::queryAccessibleInterface(&open.canvas);
  EXPECT_EQ(drawing->text(QAccessible::Name), "Plot");
  EXPECT_EQ(drawing->text(QAccessible::Description).left(64).toStdString(),
            "SILICON. Along: 2θ (°), 20 to 90. Up: Intensity (counts). 3501 p");
}

/// Names and values of all children, line by line.
std::string Tree(QAccessibleInterface& parent) {
  std::string text;
  for (int i = 0; i < parent.childCount(); ++i) {
    QAccessibleInterface& child = *parent.child(i);
    EXPECT_EQ(parent.indexOfChild(&child), i);
    EXPECT_EQ(child.parent()->object(), parent.object());
    text += child.text(QAccessible::Name).toStdString() + " | " + child.text(QAccessible::Value).toStdString() + "\n";
  }
  return text;
}

TEST(PlotWidget, TitleAndAxesStandInTheTreeOfAScreenReader) {
  OpenPlot open;
  QAccessibleInterface& drawing = *QAccessible::queryAccessibleInterface(&open.canvas);
  EXPECT_EQ(drawing.role(), QAccessible::Chart);
  open.canvas.SetView({30.0, 60.0}, {0.0, 4400.0});
  EXPECT_EQ(Tree(drawing),
            "Title: SILICON | \nHorizontal axis: 2θ (°) | from 30 to 60\n"
            "Vertical axis: Intensity (counts) | from 0 to 4400\n");
  open.plot.ApplySettings({AlongUnit::kQ, UpScale::kSquareRoot, {}, false});
  open.canvas.SetView({1.0, 5.0}, {0.0, 20.0});
  EXPECT_EQ(Tree(drawing),
            "Title: SILICON | \nHorizontal axis: Q (Å⁻¹) | from 1 to 5\n"
            "Vertical axis: Intensity (counts), square root scale | from 0 to 400\n");
  const QPoint below = drawing.child(1)->rect().center();
  EXPECT_EQ(drawing.childAt(below.x(), below.y()), drawing.child(1));
}

TEST(PlotWidget, EverythingHasAName) {
  OpenPlot open(true);
  for (const QWidget* const widget : open.plot.findChildren<QWidget*>()) {
    const bool takes_focus = (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isVisible();
    auto* const told = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget));
    EXPECT_TRUE(!takes_focus || !told->text(QAccessible::Name).isEmpty()) << widget->metaObject()->className();
  }
}

TEST(PlotWidget, SavedPeaksAreWhatTheComparisonReads) {
  const TestDirectory directory;
  OpenPlot open(true);
  open.Click(40.0);
  EXPECT_EQ(open.plot.PeakListPath(), "SILICON.peaks.LST");
  ASSERT_TRUE(open.plot.SavePeaksTo(open.plot.PeakListPath())) << open.plot.Message().toStdString();
  InputFile file;
  file.OpenRequired(Folder(), "SILICON.peaks.LST");
  EXPECT_NEAR(ReadWavelength(file), 1.540598, 1e-5);
  PeakList list;
  ReadPeakList(file, list);
  ASSERT_EQ(list.count, 6);
  EXPECT_NEAR(list.TwoTheta[1], 28.442, 0.01);
  EXPECT_NEAR(list.Intensity[1], 4000.0, 150.0);
  open.Key(Qt::Key_Z, Qt::ControlModifier);
  ASSERT_TRUE(open.plot.ComparePeaksWith("SILICON.peaks.LST"));
  EXPECT_EQ(open.plot.Message().section("; ", 1).toStdString(),
            "without a partner 1 of 6 peaks there and 0 of 5 here.");
  EXPECT_FALSE(open.plot.ComparePeaksWith("NONE.LST"));
}

TEST(PlotWidget, PicturesAndDataAreWritten) {
  const TestDirectory directory;
  OpenPlot open;
  open.plot.AddOverlay("OTHER", MadePattern(2));
  for (const char* const name : {"plot.png", "plot.svg", "plot.pdf", "plot.xy"}) {
    EXPECT_TRUE(open.plot.ExportTo(name, QSize(600, 400))) << open.plot.Message().toStdString();
  }
  const QImage picture("plot.png");
  EXPECT_EQ(picture.size(), QSize(1200, 800));
  EXPECT_EQ(picture.pixelColor(3, 3), QColor(Qt::white)) << "on paper, whatever the window has";
  EXPECT_NE(ReadFile("plot.svg").find("SILICON"), std::string::npos);
  EXPECT_EQ(ReadFile("plot.pdf").substr(0, 5), "%PDF-");
  PlotWidget unseen;
  unseen.ShowPattern("SILICON", MadePattern());
  EXPECT_TRUE(unseen.ExportTo("unseen.svg", QSize(2000, 800)));
  EXPECT_GT(std::ranges::count(ReadFile("unseen.svg"), ','), 3000) << "as fine as the picture, not as the window";
  PlotWidget again;
  EXPECT_TRUE(again.OpenFile("plot.xy") && again.OverlayFile("plot.2.xy")) << again.Message().toStdString();
  EXPECT_EQ(again.findChild<PlotCanvas*>()->Model().Series()[0].pattern.counts, MadePattern().counts);
  EXPECT_FALSE(open.plot.ExportTo("plot.gif"));
  EXPECT_EQ(open.plot.Message(), "plot.gif: a name that ends in .png, .svg, .pdf or .xy is needed.");
  EXPECT_FALSE(open.plot.ExportTo("nowhere/plot.png"));
  EXPECT_FALSE(open.plot.ExportTo("nowhere/plot.xy"));
}

/// The longest line of an SVG, as the places of its points along.
std::vector<double> LongestLine(const std::string& svg) {
  QString longest;
  const QRegularExpression points("points=\"([^\"]*)\"");
  for (const auto& match : points.globalMatch(QString::fromStdString(svg)))
    if (match.captured(1).size() > longest.size()) longest = match.captured(1);
  std::vector<double> along;
  for (const QString& point : longest.split(' ', Qt::SkipEmptyParts)) along.push_back(point.split(',')[0].toDouble());
  return along;
}

TEST(PlotWidget, APictureWiderThanThePlotHasAllItsPointsInTheirOrder) {
  const TestDirectory directory;
  PlotWidget plot;  // Never shown, as in talven-view --export.
  plot.ShowPattern("SILICON", MadePattern());
  ASSERT_TRUE(plot.ExportTo("wide.svg", QSize(8000, 400)));
  const std::vector<double> along = LongestLine(ReadFile("wide.svg"));
  EXPECT_GE(along.size(), MadePattern().PointCount());
  EXPECT_TRUE(std::ranges::is_sorted(along));
}

TEST(PlotWidget, AFileThatCannotBeReadIsToldAndChangesNothing) {
  const TestDirectory directory;
  OpenPlot open;
  WriteFile("BAD.XY", "10 1\n11 x\n");
  EXPECT_FALSE(open.plot.OpenFile("BAD.XY"));
  EXPECT_NE(open.plot.Message().indexOf("BAD.XY"), -1) << open.plot.Message().toStdString();
  EXPECT_TRUE(open.Find<QLabel>("plotMessage").isVisible());
  EXPECT_EQ(open.canvas.Model().Series().front().title, "SILICON");
  EXPECT_FALSE(open.plot.OpenFile("NONE.XY"));
}

}  // namespace
}  // namespace talven::test
