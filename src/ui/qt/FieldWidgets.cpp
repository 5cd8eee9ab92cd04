#include "ui/qt/FieldWidgets.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>

#include "ui/forms/FormCatalogue.h"
#include "ui/qt/FieldHelp.h"
#include "ui/qt/IntegerSpinBox.h"
#include "ui/qt/QtText.h"

namespace talven {
namespace {

/// Frame and margins above and below the text of a field.
constexpr int kAroundLine = 6;

QWidget* MakeButton(const FieldSpec& spec, QWidget* parent) {
  auto* const button = new QPushButton(ToQString(spec.text), parent);
  button->setDefault(spec.id == kOkButton);
  button->setAutoDefault(false);
  return button;
}

QWidget* MakeCheck(const FormState::Field& field, QWidget* parent) {
  auto* const box = new QCheckBox(ToQString(field.spec->text), parent);
  box->setChecked(field.is_set);
  return box;
}

QWidget* MakeRadio(const FormState::Field& field, QWidget* parent) {
  auto* const button = new QRadioButton(ToQString(field.spec->text), parent);
  button->setAutoExclusive(false);
  button->setChecked(field.is_set);
  return button;
}

QWidget* MakeEdit(const FormState::Field& field, QWidget* parent) {
  auto* const edit = new QLineEdit(ToQString(field.text), parent);
  if (field.spec->kind == FieldKind::kIntegerEdit) edit->setValidator(new IntegerKeys(edit));
  return edit;
}

QWidget* MakeSpin(const FormState::Field& field, QWidget* parent) {
  auto* const spin = new IntegerSpinBox(field.spec->range, parent);
  spin->lineEdit()->setText(ToQString(field.text));
  return spin;
}

QWidget* MakeGroupBox(const FieldSpec& spec, QWidget* parent) {
  auto* const box = new QGroupBox(ToQString(spec.text), parent);
  box->lower();
  return box;
}

QWidget* MakeLabel(const FieldSpec& spec, QWidget* parent) {
  auto* const label = new QLabel(ToQString(spec.text), parent);
  label->setTextFormat(Qt::PlainText);
  label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  return label;
}

QWidget* MakeWidget(const FormState::Field& field, QWidget* parent) {
  switch (field.spec->kind) {
    case FieldKind::kGroupBox:
      return MakeGroupBox(*field.spec, parent);
    case FieldKind::kButton:
      return MakeButton(*field.spec, parent);
    case FieldKind::kCheck:
      return MakeCheck(field, parent);
    case FieldKind::kRadio:
      return MakeRadio(field, parent);
    case FieldKind::kEdit:
    case FieldKind::kRealEdit:
    case FieldKind::kIntegerEdit:
      return MakeEdit(field, parent);
    case FieldKind::kIntegerSpin:
      return MakeSpin(field, parent);
    case FieldKind::kStatic:
      break;
  }
  return MakeLabel(*field.spec, parent);
}

void SetHelp(const FieldSpec& spec, const FieldHelp& help, QWidget* widget) {
  const QString range = ToQString(DescribeRange(spec.range));
  QStringList tip;
  if (!help.brief.empty()) tip += ToQString(help.brief);
  if (!range.isEmpty()) tip += range;
  widget->setToolTip(tip.join('\n'));
  widget->setAccessibleDescription(tip.join(", "));
  if (help.text.empty()) return;
  QString text = "<p><b>" + ToQString(help.brief).toHtmlEscaped() + "</b></p><p>";
  text += ToQString(help.text).toHtmlEscaped() + "</p>";
  if (!range.isEmpty()) text += "<p>Range: " + range + "</p>";
  widget->setWhatsThis(text);
}

}  // namespace

QWidget* MakeFieldWidget(int form, const FormState::Field& field, QWidget* parent) {
  const FieldSpec& spec = *field.spec;
  QWidget* const widget = MakeWidget(field, parent);
  widget->setObjectName(QString::number(spec.id));
  widget->setEnabled(field.is_enabled);
  widget->setAccessibleName(ToQString(spec.label.empty() ? spec.text : spec.label));
  SetHelp(spec, HelpFor(form, spec.id), widget);
  return widget;
}

QLineEdit* EditIn(QWidget* widget) {
  if (auto* const spin = dynamic_cast<IntegerSpinBox*>(widget)) return spin->lineEdit();
  return qobject_cast<QLineEdit*>(widget);
}

QSize NeededSize(const QWidget& widget) {
  const QSize hint = widget.sizeHint();
  // Small letters need less than the hint, which leaves room for an icon.
  const int line = widget.fontMetrics().height() + kAroundLine;
  if (qobject_cast<const QLineEdit*>(&widget) != nullptr) return {0, std::min(hint.height(), line)};
  if (qobject_cast<const QPushButton*>(&widget) != nullptr || qobject_cast<const QGroupBox*>(&widget) != nullptr)
    return widget.minimumSizeHint().boundedTo({0, hint.height()});
  return hint;
}

QColor Blend(const QColor& below, const QColor& above, double part) {
  const auto mix = [part](int low, int high) { return qRound(low + (high - low) * part); };
  return {mix(below.red(), above.red()), mix(below.green(), above.green()), mix(below.blue(), above.blue())};
}

void LookUnused(QWidget& widget, bool is_unused) {
  QPalette palette;
  if (is_unused) {
    palette.setColor(QPalette::Text, palette.color(QPalette::Disabled, QPalette::Text));
    palette.setColor(QPalette::Base, palette.color(QPalette::Window));
  }
  widget.setPalette(palette);
}

void LookRefused(QWidget& widget, bool is_refused) {
  QPalette palette;
  if (is_refused) palette.setColor(QPalette::Base, Blend(palette.color(QPalette::Base), QColor(0xd0, 0x30, 0x30), 0.3));
  widget.setPalette(palette);
}

}  // namespace talven
