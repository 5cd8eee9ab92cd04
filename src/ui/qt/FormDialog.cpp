#include "ui/qt/FormDialog.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QFontInfo>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>
#include <utility>

#include "ui/qt/FieldWidgets.h"
#include "ui/qt/FormRows.h"
#include "ui/qt/NameCompleter.h"
#include "ui/qt/QtText.h"
#include "ui/qt/UnusedFields.h"

namespace talven {
namespace {

constexpr int kFirstFormNumber = 100;
/// Percent. Letters get smaller step by step: down to the first limit if the whole form is seen then, down to the
/// second if it is then no wider than its area.
constexpr int kScaleStep = 5;
constexpr int kSmallestWhole = 75;
constexpr int kSmallestWide = 60;

}  // namespace

FormDialog::FormDialog(FormState& form, std::function<void()> beep, QWidget* parent)
    : QDialog(parent, parent != nullptr ? Qt::Widget : Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      form_(form),
      own_font_(font()),
      beep_(std::move(beep)),
      note_(new RefusalNote(parent != nullptr ? parent : this)) {
  setObjectName(QString::number(form.Spec().id));
  setWindowTitle(QString::number(form.Spec().id - kFirstFormNumber));
  setAccessibleName("Form " + windowTitle());
  setWindowFlag(Qt::WindowCloseButtonHint, parent == nullptr && HasExit());
  for (const FormState::Field& field : form.Fields()) {
    MakeFieldWidget(form.Spec().id, field, this)->installEventFilter(this);
    ConnectField(field);
  }
  for (const FormState::Field& field : form.Fields())
    if (field.spec->begins_group) GroupRadios(*field.spec);
  PlaceFields();
  ShowUnused();
  TakeFocus();
  connect(qApp, &QApplication::focusChanged, this, &FormDialog::FollowFocus);
}

FormDialog::~FormDialog() {
  // The focus still moves while the base class takes the fields away.
  disconnect(qApp, nullptr, this, nullptr);
  delete note_;
}

void FormDialog::ConnectField(const FormState::Field& field) {
  const FieldSpec& spec = *field.spec;
  const int id = spec.id;
  QWidget* const widget = Widget(id);
  if (auto* const button = qobject_cast<QPushButton*>(widget))
    connect(button, &QPushButton::clicked, this, [this, id] { Press(id); });
  if (auto* const box = qobject_cast<QCheckBox*>(widget))
    connect(box, &QCheckBox::toggled, this, [this, id](bool is_set) {
      form_.SetCheck(id, is_set);
      ShowUnused();
    });
  QLineEdit* const edit = EditIn(widget);
  if (edit == nullptr) return;
  if (edit != widget) edit->installEventFilter(this);
  if (edit != widget) edit->setAccessibleName(widget->accessibleName());
  if (IsNumeric(spec.kind)) return ConnectNumber(id, edit);
  connect(edit, &QLineEdit::textChanged, this,
          [this, id](const QString& text) { form_.EditText(id, FromQString(text)); });
}

void FormDialog::ConnectNumber(int id, QLineEdit* edit) {
  connect(edit, &QLineEdit::textChanged, this, [this, id] {
    touched_.insert(id);
    TakeBackRefusal();
  });
  connect(edit, &QLineEdit::inputRejected, this, [this] { beep_(); });
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
    if (!is_set) return;
    form_.ChooseRadio(first_id, chosen);
    ShowUnused();
  });
}

void FormDialog::OfferTexts(int id, const QStringList& texts) {
  OfferNames(*EditIn(Widget(id)), texts, [this] { Press(kOkButton); });
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
  const std::vector<Geometry> places = LevelRows(form_.Spec());
  for (std::size_t i = 0; i < places.size(); ++i) {
    QWidget* const widget = Widget(form_.Spec().fields[i].id);
    QRect place = units.Place(places[i]);
    // A caption is written as high as the box beside it, so that their texts share one line.
    const bool is_caption = form_.Spec().fields[i].kind == FieldKind::kStatic;
    if (is_caption) place.adjust(0, -1, 0, 1);
    widget->setGeometry(place);
  }
  setFixedSize(units.Size(form_.Spec().width, form_.Spec().height));
}

void FormDialog::SetScale(int percent) {
  QFont scaled = own_font_;
  scaled.setPointSizeF(QFontInfo(own_font_).pointSizeF() * percent / 100.0);
  setFont(scaled);
  PlaceFields();
}

void FormDialog::FitInto(QSize room) {
  for (int percent = 100; percent >= kSmallestWhole; percent -= kScaleStep) {
    SetScale(percent);
    if (width() <= room.width() && height() <= room.height()) return;
  }
  for (int percent = 100; percent >= kSmallestWide; percent -= kScaleStep) {
    SetScale(percent);
    if (width() <= room.width()) return;
  }
}

void FormDialog::ShowUnused() {
  for (const FieldUse& use : DependentFields(form_))
    if (form_.Find(use.field)->is_enabled) LookUnused(*Widget(use.field), !use.is_used);
}

std::vector<QWidget*> FormDialog::TabStops() const {
  std::vector<QWidget*> stops;
  for (const std::size_t i : ReadingOrder(form_.Spec())) {
    QWidget* const widget = Widget(form_.Spec().fields[i].id);
    if (widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus) != 0) stops.push_back(widget);
  }
  return stops;
}

void FormDialog::TakeFocus() {
  QWidget* target = focusWidget();
  if (FieldOf(target) == nullptr) {
    const std::vector<QWidget*> stops = TabStops();
    if (stops.empty()) return;
    target = stops.front();
    if (QLineEdit* const edit = EditIn(target)) edit->selectAll();
  }
  window()->setAttribute(Qt::WA_KeyboardFocusChange);
  target->setFocus(Qt::TabFocusReason);
}

bool FormDialog::focusNextPrevChild(bool next) {
  const std::vector<QWidget*> stops = TabStops();
  const FormState::Field* const field = FieldOf(focusWidget());
  if (stops.empty() || field == nullptr) return QDialog::focusNextPrevChild(next);
  const auto here = std::ranges::find(stops, Widget(field->spec->id)) - stops.begin();
  const auto count = static_cast<std::ptrdiff_t>(stops.size());
  const auto there = here == count ? 0 : (here + (next ? 1 : count - 1)) % count;
  QWidget* const target = stops[static_cast<std::size_t>(there)];
  window()->setAttribute(Qt::WA_KeyboardFocusChange);
  if (QLineEdit* const edit = EditIn(target)) edit->selectAll();
  target->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
  return true;
}

QWidget* FormDialog::Widget(int id) const {
  return findChild<QWidget*>(QString::number(id), Qt::FindDirectChildrenOnly);
}

const FormState::Field* FormDialog::FieldOf(const QWidget* widget) const {
  while (widget != nullptr && widget->parentWidget() != this) widget = widget->parentWidget();
  return widget == nullptr ? nullptr : form_.Find(widget->objectName().toInt());
}

QLineEdit* FormDialog::EditOf(const FormState::Field& field) const {
  return EditIn(Widget(field.spec->id));
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
  const int id = field.spec->id;
  QLineEdit* const edit = EditOf(field);
  const std::string text = FromQString(edit->text());
  if (IsValid(field)) {
    if (touched_.contains(id)) form_.EditText(id, text);
    return true;
  }
  beep_();
  going_back_ = true;
  Widget(id)->setFocus();
  going_back_ = false;
  edit->selectAll();
  emit FieldToBeSeen(Widget(id));
  const QString said = RefusalText(edit->text(), ToQString(form_.Refusal(id, text).value_or("")));
  LookRefused(*Widget(id), true);
  note_->ShowBeside(*Widget(id), said);
  return false;
}

void FormDialog::TakeBackRefusal() {
  if (note_->isHidden()) return;
  note_->hide();
  for (const int id : touched_) LookRefused(*Widget(id), false);
  ShowUnused();
}

void FormDialog::FollowFocus(const QWidget* /*from*/, const QWidget* to) {
  if (going_back_) return;
  const FormState::Field* const entered = FieldOf(to);
  if (entered == nullptr) return;
  emit FieldToBeSeen(Widget(entered->spec->id));
  // The focus may have been elsewhere in the window in between.
  const FormState::Field* const left = form_.Find(std::exchange(focused_, entered->spec->id));
  if (left != nullptr && left != entered && !Leave(*left)) focused_ = left->spec->id;
}

bool FormDialog::MovesInGroup(const FormState::Field& field, int key) {
  Direction direction = Direction::kDown;
  switch (key) {
    case Qt::Key_Up:
      direction = Direction::kUp;
      break;
    case Qt::Key_Down:
      break;
    case Qt::Key_Left:
      direction = Direction::kLeft;
      break;
    case Qt::Key_Right:
      direction = Direction::kRight;
      break;
    default:
      return false;
  }
  for (const FormState::Field& first : form_.Fields()) {
    if (!first.spec->begins_group) continue;
    const std::vector<int> group = form_.RadioGroup(first.spec->id);
    if (std::ranges::find(group, field.spec->id) == group.end()) continue;
    auto* const target =
        qobject_cast<QRadioButton*>(Widget(NeighbourInGroup(form_.Spec(), group, field.spec->id, direction)));
    target->setChecked(true);
    target->setFocus(Qt::TabFocusReason);
    return true;
  }
  return false;
}

bool FormDialog::AnswersKey(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress || qobject_cast<QAbstractButton*>(watched) == nullptr) return false;
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    auto* const button = qobject_cast<QPushButton*>(watched);
    Press(button != nullptr ? button->objectName().toInt() : kOkButton);
    return true;
  }
  return qobject_cast<QRadioButton*>(watched) != nullptr && MovesInGroup(*FieldOf(static_cast<QWidget*>(watched)), key);
}

bool FormDialog::eventFilter(QObject* watched, QEvent* event) {
  if (AnswersKey(watched, event)) return true;
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

void FormDialog::FillAndEnd(int id, const QString& text) {
  EditIn(Widget(id))->setText(text);
  Press(kOkButton);
}

void FormDialog::EndAsItStands() {
  for (const int id : touched_) {
    const FormState::Field& field = *form_.Find(id);
    if (IsNumeric(field.spec->kind) && IsValid(field)) Leave(field);
  }
  done(HasExit() ? kExitButton : kOkButton);
}

}  // namespace talven
