// Fields for whole numbers: which keys they take, and the field with arrows.
#pragma once

#include <QAbstractSpinBox>
#include <QValidator>

#include "ui/forms/FormSpec.h"

namespace talven {

/// Lets digits and signs through, up to 11 of them.
class IntegerKeys : public QValidator {
 public:
  using QValidator::QValidator;
  State validate(QString& text, int& position) const override;
};

/// A field with arrows. It holds a text, as every numeric field does: an empty one stays empty, and no group separator
/// of a user's locale comes into it. The arrows stay inside the range.
class IntegerSpinBox : public QAbstractSpinBox {
 public:
  IntegerSpinBox(const Range& range, QWidget* parent);

  using QAbstractSpinBox::lineEdit;
  void stepBy(int steps) override;
  QSize sizeHint() const override;

 protected:
  StepEnabled stepEnabled() const override { return StepUpEnabled | StepDownEnabled; }
  /// The wheel belongs to the form, not to the field that it happens to pass over.
  void wheelEvent(QWheelEvent* event) override;

 private:
  Range range_;
};

}  // namespace talven
