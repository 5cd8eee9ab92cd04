// The widgets of a form's fields, as they are before anyone has touched them.
#pragma once

#include <QWidget>

#include "ui/forms/FormState.h"

class QLineEdit;

namespace talven {

/// Makes the widget of a field: with its caption or text, its help, and a name for assistive programs. Its object name
/// is the field's id.
QWidget* MakeFieldWidget(int form, const FormState::Field& field, QWidget* parent);

/// The line of text in a field's widget; null where there is none.
QLineEdit* EditIn(QWidget* widget);

/// Smallest size in which a field's widget shows its caption and frame whole; 0 where any size will do.
QSize NeededSize(const QWidget& widget);

/// Shows a field in the colours of one that is off, without locking it.
void LookUnused(QWidget& widget, bool is_unused);

/// Shows that the text of a field was refused.
void LookRefused(QWidget& widget, bool is_refused);

/// Part of a colour laid over another: 0 leaves the one below, 1 gives the one above.
QColor Blend(const QColor& below, const QColor& above, double part);

}  // namespace talven
