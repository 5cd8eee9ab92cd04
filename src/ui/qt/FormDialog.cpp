#include "ui/qt/FormDialog.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QToolTip>

#include "ui/qt/IntegerSpinBox.h"
#include "ui/qt/QtText.h"

namespace talven {
namespace {

constexpr int kFirstFormNumber = 100;

/// Pixels that a widget needs to show its caption and frame whole; 0 where any size will do.
QSize NeededSize(const QWidget& widget) {
  const QSize hint = widget.sizeHint();
  if (qobject_cast<const QLineEdit*>(&widget) != nullptr) return {0, hint.height()};
  if (qobject_cast<const QPushButton*>(&widget) != nullptr || qobject_cast<const QGroupBox*>(&widget) != nullptr)
    return widget.minimumSizeHint().boundedTo({0, hint.height()});
  return hint;
}

}  // namespace

FormDialog::FormDialog(FormState& form, std::function<void()> beep, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint), form_(form), beep_(std::move(beep)) {
  setObjectName(QString::number(form.Spec().id));
  setWindowTitle(QString::number(form.Spec().id - kFirstFormNumber));
  setWindowFlag(Qt::WindowCloseButtonHint, HasExit());
  for (const FormState::Field& field : form.Fields()) {
    QWidget* const widget = MakeField(field);
    widget->setObjectName(QString::number(field.spec->id));
    widget->setEnabled(field.is_enabled);
    widget->installEventFilter(this);
  }
  for (const FormState::Field& field : form.Fields())
    if (field.spec->begins_group) GroupRadios(*field.spec);
  PlaceFields();
  FocusFirstField();
  connect(qApp, &QApplication::focusChanged, this, &FormDialog::FollowFocus);
}

FormDialog::~FormDialog() {
  // The focus still moves while the base class takes the fields away.
  disconnect(qApp, nullptr, this, nullptr);
}

QWidget* FormDialog::MakeField(const FormState::Field& field) {
  const FieldSpec& spec = *field.spec;
  switch (spec.kind) {
    case FieldKind::kGroupBox: {
      auto* const box = new QGroupBox(ToQString(spec.text), this);
      box->lower();
      return box;
    }
    case FieldKind::kButton:
      return MakeButton(spec);
    case FieldKind::kCheck:
      return MakeCheck(field);
    case FieldKind::kRadio:
      return MakeRadio(field);
    case FieldKind::kEdit:
    case FieldKind::kRealEdit:
    case FieldKind::kIntegerEdit:
      return MakeEdit(field);
    case FieldKind::kIntegerSpin:
      return MakeSpin(field);
    case FieldKind::kStatic:
      break;
  }
  auto* const label = new QLabel(ToQString(spec.text), this);
  label->setTextFormat(Qt::PlainText);
  label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  return label;
}

QWidget* FormDialog::MakeButton(const FieldSpec& spec) {
  auto* const button = new QPushButton(ToQString(spec.text), this);
  button->setDefault(spec.id == kOkButton);
  const int id = spec.id;
  connect(button, &QPushButton::clicked, this, [this, id] { Press(id); });
  return button;
}

QWidget* FormDialog::MakeCheck(const FormState::Field& field) {
  auto* const box = new QCheckBox(ToQString(field.spec->text), this);
  box->setChecked(field.is_set);
  const int id = field.spec->id;
  connect(box, &QCheckBox::toggled, this, [this, id](bool is_set) { form_.SetCheck(id, is_set); });
  return box;
}

QWidget* FormDialog::MakeRadio(const FormState::Field& field) {
  auto* const button = new QRadioButton(ToQString(field.spec->text), this);
  button->setAutoExclusive(false);
  button->setChecked(field.is_set);
  return button;
}

void FormDialog::GroupRadios(const FieldSpec& first) {
  auto* const group = new QButtonGroup(this);
  int number = 0;
  for (const int id : form_.RadioGroup(first.id)) {
    auto* const button = qobject_cast<QRadioButton*>(Widget(id));
    button->setAutoExclusive(true);
    if (!button->isChecked()) button->setFocusPolicy(Qt::ClickFocus);
    group->addButton(button, ++number);
  }
  const int first_id = first.id;
  connect(group, &QButtonGroup::idToggled, this, [this, first_id](int chosen, bool is_set) {
    if (is_set) form_.ChooseRadio(first_id, chosen);
  });
}

QWidget* FormDialog::MakeEdit(const FormState::Field& field) {
  auto* const edit = new QLineEdit(ToQString(field.text), this);
  const FieldSpec& spec = *field.spec;
  edit->setAccessibleName(ToQString(spec.label));
  if (spec.kind == FieldKind::kIntegerEdit) edit->setValidator(new IntegerKeys(edit));
  if (IsNumeric(spec.kind)) {
    SetUpNumber(field, edit, edit);
  } else {
    const int id = spec.id;
    connect(edit, &QLineEdit::textEdited, this,
            [this, id](const QString& text) { form_.EditText(id, FromQString(text)); });
  }
  return edit;
}

QWidget* FormDialog::MakeSpin(const FormState::Field& field) {
  auto* const spin = new IntegerSpinBox(field.spec->range, this);
  spin->lineEdit()->setText(ToQString(field.text));
  spin->lineEdit()->installEventFilter(this);
  SetUpNumber(field, spin, spin->lineEdit());
  return spin;
}

void FormDialog::SetUpNumber(const FormState::Field& field, QWidget* widget, QLineEdit* edit) {
  const FieldSpec& spec = *field.spec;
  const QString range = ToQString(DescribeRange(spec.range));
  widget->setAccessibleName(ToQString(spec.label));
  widget->setAccessibleDescription(range);
  widget->setToolTip(range);
  const int id = spec.id;
  connect(edit, &QLineEdit::textChanged, this, [this, id] { touched_.insert(id); });
  connect(edit, &QLineEdit::inputRejected, this, [this] { beep_(); });
}

DialogUnits FormDialog::FittingUnits() const {
  const DialogUnits units = UnitsOf(font());
  double stretch_x = 1.0;
  double stretch_y = 1.0;
  for (const FormState::Field& field : form_.Fields()) {
    const QWidget& widget = *Widget(field.spec->id);
    widget.ensurePolished();
    const QSize needed = NeededSize(widget);
    const Geometry& place = field.spec->geometry;
    stretch_x = std::max(stretch_x, needed.width() / (units.x * place.width));
    stretch_y = std::max(stretch_y, needed.height() / (units.y * place.height));
  }
  return {units.x * stretch_x, units.y * stretch_y};
}

void FormDialog::PlaceFields() {
  const DialogUnits units = FittingUnits();
  for (const FormState::Field& field : form_.Fields())
    Widget(field.spec->id)->setGeometry(units.Place(field.spec->geometry));
  setFixedSize(units.Size(form_.Spec().width, form_.Spec().height));
}

void FormDialog::FocusFirstField() {
  for (const FormState::Field& field : form_.Fields()) {
    QWidget* const widget = Widget(field.spec->id);
    if (!field.is_enabled || (widget->focusPolicy() & Qt::TabFocus) == 0) continue;
    widget->setFocus(Qt::TabFocusReason);
    if (QLineEdit* const edit = EditOf(field)) edit->selectAll();
    return;
  }
}

QWidget* FormDialog::Widget(int id) const {
  return findChild<QWidget*>(QString::number(id), Qt::FindDirectChildrenOnly);
}

const FormState::Field* FormDialog::FieldOf(const QWidget* widget) const {
  while (widget != nullptr && widget->parentWidget() != this) widget = widget->parentWidget();
  return widget == nullptr ? nullptr : form_.Find(widget->objectName().toInt());
}

QLineEdit* FormDialog::EditOf(const FormState::Field& field) const {
  QWidget* const widget = Widget(field.spec->id);
  if (auto* const spin = dynamic_cast<IntegerSpinBox*>(widget)) return spin->lineEdit();
  return qobject_cast<QLineEdit*>(widget);
}

bool FormDialog::IsValid(const FormState::Field& field) const {
  if (!IsNumeric(field.spec->kind)) return true;
  const std::string text = FromQString(EditOf(field)->text());
  // What the program put stays, even where it does not fit its format and shows as asterisks.
  if (!field.is_edited && text == field.text) return true;
  return !form_.Refusal(field.spec->id, text);
}

bool FormDialog::Leave(const FormState::Field& field) {
  if (!IsNumeric(field.spec->kind)) return true;
  QLineEdit* const edit = EditOf(field);
  if (IsValid(field)) {
    if (touched_.contains(field.spec->id)) form_.EditText(field.spec->id, FromQString(edit->text()));
    return true;
  }
  beep_();
  going_back_ = true;
  Widget(field.spec->id)->setFocus();
  going_back_ = false;
  edit->selectAll();
  QToolTip::showText(edit->mapToGlobal(QPoint(0, edit->height())), Widget(field.spec->id)->toolTip(), edit);
  return false;
}

void FormDialog::FollowFocus(const QWidget* from, const QWidget* to) {
  if (going_back_) return;
  const FormState::Field* const left = FieldOf(from);
  const FormState::Field* const entered = FieldOf(to);
  if (left != nullptr && entered != nullptr && left != entered) Leave(*left);
}

bool FormDialog::PressesDefault(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress || qobject_cast<QPushButton*>(watched) != nullptr) return false;
  const int key = static_cast<QKeyEvent*>(event)->key();
  return qobject_cast<QAbstractButton*>(watched) != nullptr && (key == Qt::Key_Return || key == Qt::Key_Enter);
}

bool FormDialog::eventFilter(QObject* watched, QEvent* event) {
  if (PressesDefault(watched, event)) {
    Press(kOkButton);
    return true;
  }
  if (event->type() != QEvent::MouseButtonPress && event->type() != QEvent::MouseButtonDblClick)
    return QDialog::eventFilter(watched, event);
  const auto* const widget = qobject_cast<QWidget*>(watched);
  const FormState::Field* const clicked = FieldOf(widget);
  const FormState::Field* const focused = FieldOf(focusWidget());
  if (clicked == nullptr || focused == nullptr || clicked == focused || IsValid(*focused)) return false;
  // A widget that takes the focus by a click has had it and lost it again, with a beep, before the click comes here.
  if ((widget->focusPolicy() & Qt::ClickFocus) == 0) Leave(*focused);
  return true;
}

void FormDialog::Press(int button) {
  // All that were changed: assistive programs fill a field without going there.
  for (const int id : touched_)
    if (!Leave(*form_.Find(id))) return;
  done(button);
}

void FormDialog::reject() {
  if (HasExit()) Press(kExitButton);
}

void FormDialog::EndAsItStands() {
  for (const int id : touched_) {
    const FormState::Field& field = *form_.Find(id);
    if (IsNumeric(field.spec->kind) && IsValid(field)) Leave(field);
  }
  done(HasExit() ? kExitButton : kOkButton);
}

}  // namespace talven
