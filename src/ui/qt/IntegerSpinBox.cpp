#include "ui/qt/IntegerSpinBox.h"

#include <QLineEdit>
#include <QWheelEvent>
#include <algorithm>
#include <cstdint>
#include <limits>

#include "ui/forms/FormState.h"
#include "ui/qt/QtText.h"

namespace talven {

QValidator::State IntegerKeys::validate(QString& text, int& /*position*/) const {
  return IsTypableInteger(FromQString(text)) ? Acceptable : Invalid;
}

IntegerSpinBox::IntegerSpinBox(const Range& range, QWidget* parent) : QAbstractSpinBox(parent), range_(range) {
  lineEdit()->setValidator(new IntegerKeys(this));
  setFocusPolicy(Qt::StrongFocus);
}

void IntegerSpinBox::stepBy(int steps) {
  using Limits = std::numeric_limits<std::int32_t>;
  const double low = range_.IsSet() ? range_.low : Limits::min();
  const double high = range_.IsSet() ? range_.high : Limits::max();
  const double value = ParseFieldNumber(FieldKind::kIntegerSpin, FromQString(text())).value_or(0.0);
  const double stepped = std::clamp(value + steps, low, high);
  lineEdit()->setText(QString::number(static_cast<std::int64_t>(stepped)));
  lineEdit()->selectAll();
}

QSize IntegerSpinBox::sizeHint() const {
  return {0, QAbstractSpinBox::sizeHint().height()};
}

void IntegerSpinBox::wheelEvent(QWheelEvent* event) {
  if (hasFocus()) {
    QAbstractSpinBox::wheelEvent(event);
  } else {
    event->ignore();
  }
}

}  // namespace talven
