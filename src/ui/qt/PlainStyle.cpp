#include "ui/qt/PlainStyle.h"

#include <QApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>

#include "ui/qt/FieldWidgets.h"

namespace talven {
namespace {

constexpr int kMiddleGrey = 128;
constexpr double kOutline = 0.45;

class PlainStyle : public QProxyStyle {
 public:
  using QProxyStyle::QProxyStyle;

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const QColor ground = option->palette.color(QPalette::Window);
    if (ground.lightness() > kMiddleGrey) return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Blend(ground, option->palette.color(QPalette::WindowText), kOutline));
    painter->setBrush(Qt::NoBrush);
    const QRectF outline = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
    if (element == PE_IndicatorRadioButton) painter->drawEllipse(outline.adjusted(0.5, 0.5, -0.5, -0.5));
    const bool is_field = element == PE_FrameLineEdit && (option->state & State_HasFocus) == 0;
    if (element == PE_IndicatorCheckBox || is_field) painter->drawRoundedRect(outline, 2.0, 2.0);
    painter->restore();
  }
};

}  // namespace

void ClearUpPlainStyle(QApplication& application) {
  if (QApplication::style()->name() == "fusion") application.setStyle(new PlainStyle("fusion"));
}

}  // namespace talven
