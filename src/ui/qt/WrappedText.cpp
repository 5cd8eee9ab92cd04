#include "ui/qt/WrappedText.h"

#include <QScrollBar>
#include <QTextEdit>
#include <algorithm>
#include <memory>

namespace talven {
namespace {

constexpr int kWidest = 420;
constexpr int kNarrowest = 80;

class WrappedText : public QTextEdit {
 public:
  WrappedText(const QString& text, const QString& name, QWidget* parent) : QTextEdit(parent) {
    setPlainText(text);
    setReadOnly(true);
    setAccessibleName(name);
    setFrameShape(QFrame::NoFrame);
    setTabChangesFocus(true);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAutoFillBackground(false);
    document()->setDocumentMargin(0);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
  }
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override {
    const std::unique_ptr<QTextDocument> copy(document()->clone());
    copy->setDefaultFont(font());
    copy->setTextWidth(width);
    return static_cast<int>(copy->size().height()) + 2;
  }
  QSize sizeHint() const override {
    int widest = 0;
    for (const QString& line : toPlainText().split('\n'))
      widest = std::max(widest, fontMetrics().horizontalAdvance(line));
    const int width = std::min(kWidest, widest + 4);
    return {width, heightForWidth(width)};
  }
  QSize minimumSizeHint() const override { return {std::min(kNarrowest, sizeHint().width()), fontMetrics().height()}; }
};

}  // namespace

QTextEdit* MakeWrappedText(const QString& text, const QString& name, QWidget* parent) {
  return new WrappedText(text, name, parent);
}

}  // namespace talven
