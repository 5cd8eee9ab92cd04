#include "app/view/ViewWindow.h"

#include <QApplication>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>

#include "ui/plot/PlotHelp.h"
#include "ui/plot/PlotWidget.h"

namespace talven {
namespace {

constexpr QSize kUsualSize(1100, 700);
constexpr double kShareOfScreen = 0.95;

}  // namespace

ViewWindow::ViewWindow(QWidget* parent) : QMainWindow(parent), plot_(new PlotWidget(this)) {
  setWindowTitle(tr("Talven View"));
  setCentralWidget(plot_);
  // At 200 % a small screen has less room.
  resize(kUsualSize.boundedTo(screen()->availableSize() * kShareOfScreen));
  MakeMenus();
  plot_->setFocus();
  connect(plot_, &PlotWidget::TitleChanged, this,
          [this](const QString& title) { setWindowTitle(tr("%1 - Talven View").arg(title)); });
}

void ViewWindow::MakeMenus() {
  QMenu* const file = menuBar()->addMenu(tr("&File"));
  QMenu* const view = menuBar()->addMenu(tr("&View"));
  QMenu* const peaks = menuBar()->addMenu(tr("&Peaks"));
  plot_->FillMenus(*file, *view, *peaks);
  file->addSeparator();
  QAction* const quit = file->addAction(tr("&Quit"), this, &QWidget::close);
  quit->setShortcut(QKeySequence("Ctrl+Q"));
  QMenu* const help = menuBar()->addMenu(tr("&Help"));
  QAction* const keys = help->addAction(tr("&Mouse and Keys"), this, [this] { ShowPlotKeys(this); });
  keys->setShortcut(QKeySequence::HelpContents);
  help->addAction(tr("&About"), this, &ViewWindow::ShowAbout);
}

void ViewWindow::ShowAbout() {
  QMessageBox::about(this, tr("About Talven View"),
                     tr("<p><b>Talven View %1</b></p>"
                        "<p>Powder patterns on the screen, and their peaks.</p>"
                        "<p>By the Talven developers. Qt %2 is under the GNU Lesser General Public License, version "
                        "3.</p>%3"
                        "<p>There is no warranty, to the extent permitted by law.</p>")
                         .arg(TALVEN_VERSION, QLatin1String(qVersion()), PlotCredits()));
}

}  // namespace talven
