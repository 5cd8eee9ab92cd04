#include "ui/qt/RefusalNote.h"

#include <QAccessible>
#include <algorithm>

#include "ui/forms/FormState.h"
#include "ui/qt/FieldWidgets.h"
#include "ui/qt/QtText.h"

namespace talven {
namespace {

constexpr int kGap = 6;
/// A neighbour may be a little wider than the field.
constexpr int kFromField = 10;
/// Width in which a text of three lines is still read with ease.
constexpr int kNarrowest = 84;

}  // namespace

RefusalNote::RefusalNote(QWidget* host) : QLabel(host) {
  setObjectName("refusal");
  setTextFormat(Qt::PlainText);
  setFrameShape(QFrame::Box);
  setMargin(1);
  setAlignment(Qt::AlignCenter);
  setAutoFillBackground(true);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  hide();
}

void RefusalNote::ShowBeside(const QWidget& field, const QString& text) {
  const QColor red(0xd0, 0x30, 0x30);
  QPalette colours;
  colours.setColor(QPalette::Window, Blend(colours.color(QPalette::Base), red, 0.15));
  setPalette(colours);
  setText(text);
  setAccessibleName(text);
  const QWidget& host = *parentWidget();
  const QRect place(field.mapTo(&host, QPoint()), field.size());
  setWordWrap(false);
  const int in_one_line = sizeHint().width() + kGap;
  const int beside = std::min(in_one_line, host.width() - place.right() - kFromField - kGap);
  if (beside >= std::min(in_one_line, kNarrowest)) {
    setWordWrap(beside < in_one_line);
    const int height = wordWrap() ? heightForWidth(beside) : sizeHint().height();
    setGeometry(place.right() + kFromField, place.center().y() - height / 2, beside, height);
  } else {
    // Between the rows of the form.
    const int left = std::max(kGap, std::min(place.left(), host.width() - kGap - in_one_line));
    setGeometry(left, place.bottom() + 1, in_one_line, sizeHint().height());
  }
  show();
  raise();
  QAccessibleEvent event(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&event);
}

QString RefusalText(const QString& typed, const QString& wanted) {
  QString with_point = typed.trimmed();
  const bool has_comma = with_point.count(',') == 1;
  with_point.replace(',', '.');
  if (has_comma && ParseFieldNumber(FieldKind::kRealEdit, FromQString(with_point)))
    return "Write a point, not a comma: " + with_point;
  return "Wanted: " + wanted;
}

}  // namespace talven
