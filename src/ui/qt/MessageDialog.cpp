#include "ui/qt/MessageDialog.h"

#include <QPushButton>
#include <algorithm>
#include <array>

#include "ui/qt/QtText.h"

namespace talven {
namespace {

QMessageBox::StandardButton StandardOf(std::string_view text) {
  struct Entry {
    std::string_view text;
    QMessageBox::StandardButton button;
  };
  static constexpr std::array kEntries = {
      Entry{"OK", QMessageBox::Ok},         Entry{"Cancel", QMessageBox::Cancel}, Entry{"Retry", QMessageBox::Retry},
      Entry{"Yes", QMessageBox::Yes},       Entry{"No", QMessageBox::No},         Entry{"Abort", QMessageBox::Abort},
      Entry{"Ignore", QMessageBox::Ignore},
  };
  return std::ranges::find(kEntries, text, &Entry::text)->button;
}

QMessageBox::Icon IconOf(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::kStop:
      return QMessageBox::Critical;
    case MessageIcon::kQuestion:
      return QMessageBox::Question;
    case MessageIcon::kExclamation:
      return QMessageBox::Warning;
    case MessageIcon::kInformation:
      return QMessageBox::Information;
    case MessageIcon::kNone:
      break;
  }
  return QMessageBox::NoIcon;
}

}  // namespace

MessageDialog::MessageDialog(const Message& message, QWidget* parent)
    : QMessageBox(parent), answers_(MessageButtons(message.type)) {
  setObjectName("message");
  setIcon(IconOf(message.icon));
  setWindowTitle(ToQString(message.title));
  setTextFormat(Qt::PlainText);
  setText(ToQString(message.text).replace('\r', '\n'));
  setTextInteractionFlags(Qt::TextSelectableByMouse);
  for (const MessageButton& answer : answers_) {
    QPushButton* const button = addButton(StandardOf(answer.text));
    button->setText(ToQString(answer.text));
    buttons_.push_back(button);
  }
  const auto last = buttons_.size();
  const auto wanted = static_cast<std::size_t>(std::max(message.default_button, 1));
  setDefaultButton(qobject_cast<QPushButton*>(buttons_[std::min(wanted, last) - 1]));
  setEscapeButton(buttons_.back());
}

int MessageDialog::Answer() const {
  for (std::size_t i = 0; i < buttons_.size(); ++i)
    if (buttons_[i] == clickedButton()) return answers_[i].answer;
  return answers_.back().answer;
}

}  // namespace talven
