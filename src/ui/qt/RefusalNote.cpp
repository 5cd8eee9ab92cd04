#include "ui/qt/RefusalNote.h"

#include <QAccessible>
#include <algorithm>

#include "ui/forms/FormState.h"
#include "ui/qt/FieldWidgets.h"
#include "ui/qt/QtText.h"

namespace talven {
namespace {

constexpr int kGap = 6;
constexpr int kNarrowest = 120;

}  // namespace

RefusalNote::RefusalNote(QWidget* host) : QLabel(host) {
  setObjectName("refusal");
  setTextFormat(Qt::PlainText);
  setFrameShape(QFrame::Box);
  setMargin(3);
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
  const int beside = host.width() - place.right() - 2 * kGap;
  setWordWrap(false);
  if (beside < sizeHint().width()) setWordWrap(true);
  if (beside >= kNarrowest || beside >= sizeHint().width()) {
    const int width = std::min(sizeHint().width(), beside);
    const int height = wordWrap() ? heightForWidth(width) : sizeHint().height();
    setGeometry(place.right() + kGap, place.center().y() - height / 2, width, height);
  } else {
    const int width = std::min(QFontMetrics(font()).horizontalAdvance(text) + 4 * kGap, host.width() - 2 * kGap);
    const int left = std::max(kGap, std::min(place.left(), host.width() - kGap - width));
    setGeometry(left, place.bottom() + 2, width, heightForWidth(width));
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
