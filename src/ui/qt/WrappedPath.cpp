#include "ui/qt/WrappedPath.h"

#include <QScrollBar>
#include <QTextEdit>
#include <algorithm>
#include <memory>

namespace talven {
namespace {

constexpr int kWidest = 420;

/// As wide as the path, up to a limit, and as high as its lines.
class PathText : public QTextEdit {
 public:
  PathText(const QString& path, QWidget* parent) : QTextEdit(parent) {
    setPlainText(path);
    setReadOnly(true);
    setAccessibleName("Full path");
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
    const int width = std::min(kWidest, fontMetrics().horizontalAdvance(toPlainText()) + 4);
    return {width, heightForWidth(width)};
  }
  QSize minimumSizeHint() const override { return {80, fontMetrics().height()}; }
};

}  // namespace

QWidget* MakeWrappedPath(const QString& path, QWidget* parent) {
  return new PathText(path, parent);
}

}  // namespace talven
