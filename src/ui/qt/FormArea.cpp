#include "ui/qt/FormArea.h"

#include <QHBoxLayout>
#include <QScrollBar>
#include <QVBoxLayout>

#include "ui/qt/FormDialog.h"

namespace talven {
namespace {

constexpr int kMargin = 4;
constexpr int kSight = 24;

QToolButton* MakeTitleButton(const QString& text, const QString& name, QWidget* parent) {
  auto* const button = new QToolButton(parent);
  button->setText(text);
  button->setAutoRaise(true);
  button->setToolTip(name);
  button->setAccessibleName(name);
  button->setFocusPolicy(Qt::NoFocus);
  return button;
}

}  // namespace

FormArea::FormArea(QWidget* parent)
    : QScrollArea(parent),
      page_(new QWidget),
      frame_(new QFrame(page_)),
      idle_(new QLabel("Nothing to answer at the moment", page_)) {
  setObjectName("form-area");
  setAccessibleName("Form");
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setWidgetResizable(true);
  setWidget(page_);
  frame_->setFrameShape(QFrame::StyledPanel);
  auto* const inside = new QVBoxLayout(frame_);
  inside->setContentsMargins(0, 0, 0, 0);
  inside->setSpacing(0);
  inside->addWidget(MakeTitleBar());
  auto* const layout = new QVBoxLayout(page_);
  layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  layout->addWidget(frame_, 0, Qt::AlignCenter);
  layout->addWidget(idle_, 0, Qt::AlignCenter);
  idle_->setEnabled(false);
  frame_->hide();
}

QWidget* FormArea::MakeTitleBar() {
  auto* const bar = new QWidget(frame_);
  bar->setAutoFillBackground(true);
  bar->setBackgroundRole(QPalette::Mid);
  title_ = new QLabel(bar);
  title_->setForegroundRole(QPalette::WindowText);
  QFont bold = title_->font();
  bold.setBold(true);
  title_->setFont(bold);
  QToolButton* const help = MakeTitleButton("?", "Manual page of this form (F1)", bar);
  exit_ = MakeTitleButton("\u2715", "EXIT (Escape)", bar);
  connect(help, &QToolButton::clicked, this, &FormArea::HelpAsked);
  connect(exit_, &QToolButton::clicked, this, [this] {
    if (form_ != nullptr) form_->reject();
  });
  auto* const layout = new QHBoxLayout(bar);
  layout->setContentsMargins(2 * kMargin, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(title_, 1);
  layout->addWidget(help);
  layout->addWidget(exit_);
  return bar;
}

void FormArea::Show(FormDialog& form) {
  Clear();
  form_ = &form;
  title_->setText(form.windowTitle());
  exit_->setVisible(form.HasExit());
  frame_->layout()->addWidget(&form);
  idle_->hide();
  frame_->show();
  form.show();
  connect(&form, &FormDialog::FieldToBeSeen, this, &FormArea::SeeField);
  horizontalScrollBar()->setValue(0);
  verticalScrollBar()->setValue(0);
}

void FormArea::Clear() {
  if (form_ == nullptr) return;
  disconnect(form_, nullptr, this, nullptr);
  form_->hide();
  frame_->layout()->removeWidget(form_);
  form_ = nullptr;
  frame_->hide();
  idle_->show();
}

QSize FormArea::FitInto(QSize area) {
  if (form_ == nullptr) return {};
  const QSize around = frame_->sizeHint() - form_->size() + QSize(2 * kMargin, 2 * kMargin);
  form_->FitInto(area - around - QSize(verticalScrollBar()->sizeHint().width(), 0));
  return form_->size() + around;
}

void FormArea::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  FitInto(size());
}

void FormArea::SeeField(QWidget* field) {
  ensureWidgetVisible(field, kSight, kSight);
}

void FormArea::mousePressEvent(QMouseEvent* /*event*/) {
  if (form_ != nullptr) form_->TakeFocus();
}

}  // namespace talven
