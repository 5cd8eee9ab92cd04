#include "ui/qt/PaneAccessible.h"

#include <QAccessibleWidget>

#include "ui/qt/PaneWidget.h"

namespace talven {
namespace {

/// A read-only text of several lines. Qt's own helpers find words and lines in it.
class PaneAccessible : public QAccessibleWidget, public QAccessibleTextInterface {
 public:
  explicit PaneAccessible(PaneWidget* pane) : QAccessibleWidget(pane, QAccessible::EditableText) {}

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }
  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = true;
    state.multiLine = true;
    state.selectableText = true;
    return state;
  }
  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Value ? Pane().Text() : QAccessibleWidget::text(kind);
  }

  int selectionCount() const override { return Pane().SelectionStart() < Pane().SelectionEnd() ? 1 : 0; }
  void selection(int /*index*/, int* start, int* end) const override {
    *start = Pane().SelectionStart();
    *end = Pane().SelectionEnd();
  }
  void addSelection(int start, int end) override { Pane().Select(start, end); }
  void removeSelection(int /*index*/) override { Pane().Select(Pane().Cursor(), Pane().Cursor()); }
  void setSelection(int /*index*/, int start, int end) override { Pane().Select(start, end); }
  int cursorPosition() const override { return Pane().Cursor(); }
  void setCursorPosition(int position) override { Pane().Select(position, position); }
  QString text(int start, int end) const override { return Pane().Text().mid(start, end - start); }
  int characterCount() const override { return static_cast<int>(Pane().Text().size()); }
  QRect characterRect(int offset) const override {
    const QRect rect = Pane().CharacterRect(offset);
    return {Pane().mapToGlobal(rect.topLeft()), rect.size()};
  }
  int offsetAtPoint(const QPoint& point) const override { return Pane().OffsetAt(Pane().mapFromGlobal(point)); }
  void scrollToSubstring(int, int) override {}
  QString attributes(int /*offset*/, int* start, int* end) const override {
    *start = 0;
    *end = characterCount();
    return {};
  }

 private:
  PaneWidget& Pane() const { return *static_cast<PaneWidget*>(widget()); }
};

QAccessibleInterface* MakePaneAccessible(const QString& /*class_name*/, QObject* object) {
  auto* const pane = qobject_cast<PaneWidget*>(object);
  return pane == nullptr ? nullptr : new PaneAccessible(pane);
}

}  // namespace

void InstallPaneAccessible() {
  QAccessible::installFactory(MakePaneAccessible);
}

}  // namespace talven
