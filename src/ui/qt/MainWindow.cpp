#include "ui/qt/MainWindow.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QVBoxLayout>
#include <QWhatsThis>
#include <algorithm>

#include "ui/qt/AboutBox.h"
#include "ui/qt/FieldHelp.h"
#include "ui/qt/FormDialog.h"
#include "ui/qt/Overlay.h"
#include "ui/qt/RunFiles.h"

namespace talven {
namespace {

constexpr QSize kUsualSize(1600, 1000);
/// A screen below this is used whole.
constexpr QSize kSmallScreen(1400, 860);

QString LocalFile(const QMimeData& data) {
  return data.urls().size() == 1 ? data.urls().constFirst().toLocalFile() : QString();
}

}  // namespace

MainWindow::MainWindow(const QString& title, QRect place)
    : state_(WindowState::Read()), areas_(new Areas), status_(new StatusLine) {
  setWindowTitle(title);
  setAccessibleName("Talven");
  setAcceptDrops(true);
  auto* const centre = new QWidget(this);
  auto* const layout = new QVBoxLayout(centre);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(areas_, 1);
  layout->addWidget(status_);
  setCentralWidget(centre);
  areas_->Restore(state_);
  MakeMenus();
  PlaceWindow(place);
  connect(status_, &StatusLine::FileAsked, this, &MainWindow::OpenFile);
  connect(status_, &StatusLine::FolderAsked, this,
          [](const QString& folder) { QDesktopServices::openUrl(QUrl::fromLocalFile(folder)); });
  connect(&areas_->Form(), &FormArea::HelpAsked, this, &MainWindow::OpenManual);
  connect(&areas_->Leave(), &LeaveBar::FinishChosen, this, &MainWindow::FinishChosen);
  connect(&areas_->Leave(), &LeaveBar::LeaveChosen, this, &MainWindow::LeaveAtOnceChosen);
  connect(&areas_->Leave(), &LeaveBar::StayChosen, this, [this] {
    if (Form().Form() != nullptr) Form().Form()->TakeFocus();
  });
}

MainWindow::~MainWindow() {
  // Another window may have written since.
  state_.jobs = WindowState::Read().jobs;
  state_.geometry = saveGeometry();
  areas_->Save(state_);
  state_.Write();
}

void MainWindow::RememberJob(const QString& job) {
  state_.jobs = WindowState::Read().jobs;
  state_.RememberJob(job);
  state_.Write();
}

void MainWindow::PlaceWindow(QRect place) {
  const QSize room = screen()->availableSize();
  const bool is_small = room.width() < kSmallScreen.width() || room.height() < kSmallScreen.height();
  QSize size = is_small ? room : (room * 0.9).boundedTo(kUsualSize);
  if (place.width() >= 1) size.setWidth(place.width());
  if (place.height() >= 1) size.setHeight(place.height());
  resize(size.boundedTo(room));
  if (is_small) setWindowState(windowState() | Qt::WindowMaximized);
  if (place.x() >= 0 && place.y() >= 0) move(place.topLeft());
  if (place.width() < 1 && place.height() < 1 && !state_.geometry.isEmpty()) restoreGeometry(state_.geometry);
}

void MainWindow::MakeMenus() {
  QMenu* const file = menuBar()->addMenu("&File");
  file->addAction("&Open File of a Job...", QKeySequence::Open, this, &MainWindow::ChooseJobFile);
  file->addAction("&Quit", QKeySequence("Ctrl+Q"), this, &QWidget::close);
  QMenu* const view = view_menu_ = menuBar()->addMenu("&View");
  view->addAction("&Next Area", QKeySequence("F6"), this, &MainWindow::GoToNextArea);
  view->addAction("&Page", QKeySequence("Alt+1"), this, [this] { Texts().setCurrentIndex(0); });
  view->addAction("&All Lines", QKeySequence("Alt+2"), this, [this] { Texts().setCurrentIndex(1); });
  view->addAction("P&lot", QKeySequence("Alt+3"), this, [this] {
    areas_->ShowPlot();
    areas_->Plot().currentWidget()->setFocus(Qt::ShortcutFocusReason);
  });
  view->addAction("&Close Tab", QKeySequence("Ctrl+W"), this, [this] {
    if (Texts().CloseFront() && Form().Form() != nullptr) Form().Form()->TakeFocus();
  });
  view->addAction("&Output of the Last Program", this, &MainWindow::OutputAsked);
  QMenu* const help = help_menu_ = menuBar()->addMenu("&Help");
  help->addAction("&Manual", QKeySequence("F1"), this, &MainWindow::OpenManual);
  help->addAction("&What's This?", QKeySequence("Shift+F1"), this, [] { QWhatsThis::enterWhatsThisMode(); });
  help->addAction("&About Talven", this, [this] { ShowAbout(this, credits_); });
}

QMenu& MainWindow::AddMenu(const QString& title) {
  auto* const menu = new QMenu(title, this);
  menuBar()->insertMenu(help_menu_->menuAction(), menu);
  return *menu;
}

void MainWindow::SetPlot(QWidget* plot, const QStringList& endings) {
  pattern_endings_ = endings;
  // What is dropped on it comes here: a file of a job may be meant.
  plot->setAcceptDrops(false);
  areas_->Plot().SetPlot(plot);
}

bool MainWindow::IsForPlot(const QString& path) {
  const bool is_pattern = IsPatternFile(path) || pattern_endings_.contains(QFileInfo(path).suffix().toUpper());
  return is_pattern && areas_->Plot().HasPlot();
}

void MainWindow::OpenFile(const QString& path) {
  if (!IsForPlot(path)) return Texts().OpenText(path);
  areas_->ShowPlot();
  emit PatternToShow(path);
}

void MainWindow::OpenManual() {
  const FormDialog* const form = Form().Form();
  Texts().OpenManual(ManualPlaceOf(form != nullptr ? form->Spec().id : 0));
}

void MainWindow::ChooseJobFile() {
  auto* const chooser = new QFileDialog(this, "Open a file of a job", QDir::currentPath());
  chooser->setObjectName("job-file");
  chooser->setAttribute(Qt::WA_DeleteOnClose);
  chooser->setFileMode(QFileDialog::ExistingFile);
  chooser->setNameFilters(
      {"Files of jobs (*.INS *.ins *.HKL *.hkl *.FCF *.fcf *.RES *.res *.ING *.ing *.CPI *.cpi)", "All files (*)"});
  connect(chooser, &QFileDialog::fileSelected, this, &MainWindow::JobFileChosen);
  chooser->open();
}

void MainWindow::GoToNextArea() {
  std::vector<QWidget*> stops = {Form().Form(), Texts().currentWidget()->focusPolicy() == Qt::NoFocus
                                                    ? static_cast<QWidget*>(&Pane())
                                                    : Texts().currentWidget()};
  if (areas_->Plot().isVisible()) stops.push_back(areas_->Plot().currentWidget());
  stops.push_back(status_->findChild<QWidget*>("folder"));
  if (auto* const box = findChild<Overlay*>("overlay")) stops.push_back(box->findChild<QDialog*>());
  std::erase(stops, nullptr);
  std::erase_if(
      stops, [](const QWidget* stop) { return stop->focusPolicy() == Qt::NoFocus && stop->focusWidget() == nullptr; });
  const auto here = std::ranges::find_if(stops, [](const QWidget* stop) {
    const QWidget* const focus = QApplication::focusWidget();
    return focus != nullptr && (stop == focus || stop->isAncestorOf(focus));
  });
  QWidget* const next = here == stops.end() || here + 1 == stops.end() ? stops.front() : *(here + 1);
  setAttribute(Qt::WA_KeyboardFocusChange);
  (next->focusWidget() != nullptr ? next->focusWidget() : next)->setFocus(Qt::TabFocusReason);
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  emit LeaveAsked();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (!LocalFile(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
  event->acceptProposedAction();
  const QString path = LocalFile(*event->mimeData());
  PlotArea& plot = areas_->Plot();
  const bool is_over_plot = plot.isVisible() && plot.rect().contains(plot.mapFrom(this, event->position().toPoint()));
  if (is_over_plot && IsForPlot(path)) return emit PatternToShow(path);
  emit JobFileChosen(path);
}

}  // namespace talven
