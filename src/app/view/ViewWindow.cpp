#include "app/view/ViewWindow.h"

#include <QApplication>
#include <QMenuBar>
#include <QMessageBox>

#include "ui/plot/PlotWidget.h"

namespace talven {
namespace {

constexpr QSize kUsualSize(1100, 700);

}  // namespace

ViewWindow::ViewWindow(QWidget* parent) : QMainWindow(parent), plot_(new PlotWidget(this)) {
  setWindowTitle(tr("Talven View"));
  setCentralWidget(plot_);
  resize(kUsualSize);
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
  QAction* const keys = help->addAction(tr("&Mouse and Keys"), this, &ViewWindow::ShowKeys);
  keys->setShortcut(QKeySequence::HelpContents);
  help->addAction(tr("&About"), this, &ViewWindow::ShowAbout);
}

void ViewWindow::ShowKeys() {
  QMessageBox::information(this, tr("Mouse and keys"),
                           tr("<table cellspacing='4'>"
                              "<tr><td>drag; arrows</td><td>move</td></tr>"
                              "<tr><td>wheel; + and -</td><td>zoom along</td></tr>"
                              "<tr><td>Ctrl and wheel; Ctrl and + or -</td><td>zoom up</td></tr>"
                              "<tr><td>Shift and drag; right button and drag</td><td>zoom to a band</td></tr>"
                              "<tr><td>double click; Home</td><td>show all</td></tr>"
                              "<tr><td>F</td><td>fit the height</td></tr>"
                              "<tr><td>Ctrl and Left or Right (with Shift: faster)</td><td>move the cursor</td></tr>"
                              "<tr><td>Page Up, Page Down</td><td>cursor to the next peak or reflection</td></tr>"
                              "<tr><td colspan='2'><b>With peaks shown</b></td></tr>"
                              "<tr><td>click; Space</td><td>add a peak</td></tr>"
                              "<tr><td>click on a mark; Delete</td><td>remove it</td></tr>"
                              "<tr><td>drag a mark; Alt and Left or Right</td><td>move it</td></tr>"
                              "<tr><td>Ctrl+Z, Ctrl+Shift+Z</td><td>undo, redo</td></tr>"
                              "</table>"));
}

void ViewWindow::ShowAbout() {
  QMessageBox::about(this, tr("About Talven View"),
                     tr("<p><b>Talven View %1</b></p>"
                        "<p>Powder patterns on the screen, and their peaks.</p>"
                        "<p>Talven's sources are under the MIT licence. This program is built with QCustomPlot, which "
                        "is under the GNU General Public License, version 3 or later, and so the program as it stands "
                        "is too. Qt %2 is under the GNU Lesser General Public License, version 3.</p>")
                         .arg(TALVEN_VERSION, QLatin1String(qVersion())));
}

}  // namespace talven
