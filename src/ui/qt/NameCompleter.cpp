#include "ui/qt/NameCompleter.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>

namespace talven {
namespace {

/// Enter with nothing chosen passes the list by.
class EnterKeys : public QObject {
 public:
  EnterKeys(QAbstractItemView* list, std::function<void()> accept)
      : QObject(list), list_(list), accept_(std::move(accept)) {}

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::KeyPress || list_->currentIndex().isValid())
      return QObject::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
    list_->hide();
    accept_();
    return true;
  }

 private:
  QAbstractItemView* list_;
  std::function<void()> accept_;
};

}  // namespace

void OfferNames(QLineEdit& edit, const QStringList& names, std::function<void()> accept) {
  if (names.isEmpty()) return;
  auto* const completer = new QCompleter(names, &edit);
  completer->setCaseSensitivity(Qt::CaseInsensitive);
  edit.setCompleter(completer);
  completer->popup()->setAccessibleName("Jobs used before");
  completer->popup()->installEventFilter(new EnterKeys(completer->popup(), std::move(accept)));
}

}  // namespace talven
