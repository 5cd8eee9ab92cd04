#include "ui/qt/Areas.h"

#include <QTabBar>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/qt/Overlay.h"

namespace talven {
namespace {

/// Pixels at 100 %; Qt scales them with the screen.
constexpr int kColumnWidth = 1000;
constexpr int kColumnHeight = 600;
constexpr int kLeastText = 140;
constexpr int kLeastTextBeside = 230;
constexpr int kLeastPlot = 200;
constexpr int kScrollBar = 24;
constexpr QSize kBoundless(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);

}  // namespace

Areas::Areas(QWidget* parent)
    : QSplitter(Qt::Horizontal, parent),
      talk_(new QSplitter(Qt::Vertical)),
      texts_(new TextTabs),
      form_column_(new QWidget),
      leave_(new LeaveBar),
      form_(new FormArea),
      plot_(new PlotArea) {
  auto* const column = new QVBoxLayout(form_column_);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(leave_);
  column->addWidget(form_, 1);
  talk_->addWidget(texts_);
  talk_->addWidget(form_column_);
  addWidget(talk_);
  addWidget(plot_);
  for (QSplitter* const splitter : {static_cast<QSplitter*>(this), talk_}) splitter->setChildrenCollapsible(false);
  setStretchFactor(0, 0);
  setStretchFactor(1, 1);
  const int left = texts_->Pane().EasyPage().width() + kScrollBar;
  setSizes({left, left});
  plot_->setMinimumWidth(kLeastPlot);
  connect(this, &QSplitter::splitterMoved, this, [this] { moved_["columns"] = sizes(); });
  connect(talk_, &QSplitter::splitterMoved, this, [this] { moved_[BorderName()] = talk_->sizes(); });
}

std::string Areas::BorderName() const {
  return talk_->orientation() == Qt::Vertical ? "below" : "beside";
}

void Areas::PlacePlot(bool in_column) {
  if (in_column == HasPlotColumn()) return;
  if (in_column) {
    const int tab = texts_->indexOf(plot_);
    if (tab >= 0) texts_->removeTab(tab);
    addWidget(plot_);
    plot_->show();
    if (moved_.contains("columns")) setSizes(moved_["columns"]);
    return;
  }
  const int tab = texts_->insertTab(2, plot_, "Plot");
  texts_->tabBar()->setTabButton(tab, QTabBar::RightSide, nullptr);
  // A message box that stands there stays in sight.
  if (plot_->findChild<Overlay*>("overlay") != nullptr) texts_->setCurrentWidget(plot_);
}

void Areas::Arrange() {
  const bool is_high = height() >= kColumnHeight;
  const auto orientation = is_high ? Qt::Vertical : Qt::Horizontal;
  if (talk_->orientation() != orientation) talk_->setOrientation(orientation);
  PlacePlot(is_high && width() >= kColumnWidth);
}

void Areas::resizeEvent(QResizeEvent* event) {
  QSplitter::resizeEvent(event);
  Arrange();
  FitForm();
}

void Areas::WidenForForm() {
  const int wanted = form_->FitInto(kBoundless).width() + kScrollBar;
  if (!HasPlotColumn() || moved_.contains("columns") || talk_->width() >= wanted) return;
  setSizes({wanted, std::max(width() - handleWidth() - wanted, 1)});
}

int Areas::FormHeight(int room) {
  if (form_->Form() == nullptr) return room / 3;
  const int most = std::max(room - kLeastText, room / 3);
  return std::min(form_->FitInto({talk_->width(), most}).height(), most);
}

int Areas::FormWidth(int room) {
  // A little more than half of the room, or what a page leaves, or all that can be spared if its letters can't be
  // smaller.
  const int beside_page = room - texts_->Pane().EasyPage().width() - kScrollBar;
  const int share = std::max(room * 4 / 7, beside_page);
  if (form_->Form() == nullptr) return std::max(room / 3, std::min(beside_page, room / 2));
  const int wanted = form_->FitInto({share, talk_->height()}).width() + kScrollBar;
  return std::min(wanted, std::max(room - kLeastTextBeside, room / 3));
}

void Areas::FitForm() {
  WidenForForm();
  if (const auto moved = moved_.find(BorderName()); moved != moved_.end()) return talk_->setSizes(moved->second);
  const bool is_below = talk_->orientation() == Qt::Vertical;
  const int room = (is_below ? talk_->height() : talk_->width()) - talk_->handleWidth();
  const int form = is_below ? FormHeight(room) : FormWidth(room);
  talk_->setSizes({room - form, form});
  form_->FitInto(form_->size());
}

QWidget* Areas::MessagePlace() {
  return HasPlotColumn() ? static_cast<QWidget*>(plot_) : form_;
}

void Areas::ShowPlot() {
  if (!HasPlotColumn()) texts_->setCurrentWidget(plot_);
}

void Areas::Restore(const WindowState& state) {
  moved_ = state.borders;
  if (HasPlotColumn() && moved_.contains("columns")) setSizes(moved_["columns"]);
}

void Areas::Save(WindowState& state) const {
  state.borders = moved_;
}

}  // namespace talven
