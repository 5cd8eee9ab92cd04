#include "ui/qt/LeaveBar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace talven {

LeaveBar::LeaveBar(QWidget* parent) : QFrame(parent), finish_(new QPushButton("&Finish the step", this)) {
  setObjectName("leave");
  setAccessibleName("Close Talven?");
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::AlternateBase);
  auto* const text = new QLabel(
      "Close Talven? The step can still be finished with the values shown. Left at once, its files stay as they are "
      "now.",
      this);
  text->setWordWrap(true);
  auto* const leave = new QPushButton("&Leave at once", this);
  auto* const stay = new QPushButton("&Stay", this);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(text);
  auto* const row = new QHBoxLayout;
  row->addStretch(1);
  for (QPushButton* const button : {finish_, leave, stay}) {
    button->setAutoDefault(true);
    row->addWidget(button);
  }
  layout->addLayout(row);
  connect(finish_, &QPushButton::clicked, this, &LeaveBar::FinishChosen);
  connect(leave, &QPushButton::clicked, this, &LeaveBar::LeaveChosen);
  connect(stay, &QPushButton::clicked, this, &LeaveBar::StayChosen);
  for (const auto& signal : {&LeaveBar::FinishChosen, &LeaveBar::LeaveChosen, &LeaveBar::StayChosen})
    connect(this, signal, this, &QWidget::hide);
  hide();
}

void LeaveBar::Ask() {
  show();
  window()->setAttribute(Qt::WA_KeyboardFocusChange);
  finish_->setFocus(Qt::TabFocusReason);
}

void LeaveBar::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) emit StayChosen();
  auto* const button = qobject_cast<QPushButton*>(focusWidget());
  if (button != nullptr && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) button->click();
}

}  // namespace talven
