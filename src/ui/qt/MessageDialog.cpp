#include "ui/qt/MessageDialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QTextEdit>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/qt/QtText.h"
#include "ui/qt/WrappedText.h"

namespace talven {
namespace {

constexpr int kMargin = 12;

QStyle::StandardPixmap PixmapOf(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::kStop:
      return QStyle::SP_MessageBoxCritical;
    case MessageIcon::kQuestion:
      return QStyle::SP_MessageBoxQuestion;
    case MessageIcon::kExclamation:
      return QStyle::SP_MessageBoxWarning;
    default:
      return QStyle::SP_MessageBoxInformation;
  }
}

QLabel* MakeIcon(MessageIcon icon, QWidget* parent) {
  auto* const label = new QLabel(parent);
  const int size = parent->style()->pixelMetric(QStyle::PM_MessageBoxIconSize);
  label->setPixmap(parent->style()->standardIcon(PixmapOf(icon)).pixmap(size));
  label->setObjectName("icon");
  return label;
}

}  // namespace

MessageDialog::MessageDialog(const Message& message, const QString& underneath, QWidget* parent)
    : QDialog(parent, parent != nullptr ? Qt::Widget : Qt::Dialog), answers_(MessageButtons(message.type)) {
  setObjectName("message");
  setWindowTitle(ToQString(message.title));
  setAccessibleName("Message");
  text_ = MakeWrappedText(ToQString(message.text).replace('\r', '\n'), "Text of the message", this);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  layout->setSpacing(kMargin);
  if (!windowTitle().trimmed().isEmpty() && parent != nullptr) layout->addWidget(new QLabel(windowTitle(), this));
  auto* const row = new QHBoxLayout;
  row->setSpacing(kMargin);
  if (message.icon != MessageIcon::kNone) row->addWidget(MakeIcon(message.icon, this), 0, Qt::AlignTop);
  row->addWidget(MakeTexts(underneath), 1);
  layout->addLayout(row);
  layout->addWidget(MakeButtons(message.default_button));
}

QWidget* MessageDialog::MakeTexts(const QString& underneath) {
  auto* const texts = new QWidget(this);
  auto* const layout = new QVBoxLayout(texts);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addStretch(1);
  layout->addWidget(text_);
  if (!underneath.isEmpty()) layout->addWidget(MakeWrappedText(underneath, "Full path", texts));
  layout->addStretch(1);
  setAccessibleDescription(Text() + ' ' + underneath);
  return texts;
}

QWidget* MessageDialog::MakeButtons(int default_button) {
  auto* const row = new QWidget(this);
  auto* const layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addStretch(1);
  for (const MessageButton& answer : answers_) {
    auto* const button = new QPushButton(ToQString(answer.text), row);
    connect(button, &QPushButton::clicked, this,
            [this, number = static_cast<int>(buttons_.size())] { done(number + 1); });
    layout->addWidget(button);
    buttons_.push_back(button);
  }
  layout->addStretch(1);
  const auto wanted = static_cast<std::size_t>(std::max(default_button, 1));
  buttons_[std::min(wanted, buttons_.size()) - 1]->setDefault(true);
  return row;
}

QString MessageDialog::Text() const {
  return text_->toPlainText();
}

int MessageDialog::Answer() const {
  const auto pressed = static_cast<std::size_t>(result());
  return pressed == 0 ? answers_.back().answer : answers_[pressed - 1].answer;
}

void MessageDialog::TakeFocus() {
  window()->setAttribute(Qt::WA_KeyboardFocusChange);
  for (QPushButton* const button : buttons_)
    if (button->isDefault()) button->setFocus(Qt::TabFocusReason);
}

}  // namespace talven
