#include "ui/qt/PaneWidget.h"

#include <QAccessible>
#include <QAction>
#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <cmath>

#include "ui/qt/PaneAccessible.h"

namespace talven {
namespace {

constexpr double kColumns = 80.0;
/// What a full line that begins at logical x = 5 leaves of the width.
constexpr double kLineShare = 0.95;
/// Logical distance of the lines of a page, which no font's line is higher than.
constexpr double kLineStep = 7.0;

QString WithoutTrailingBlanks(QString text) {
  while (text.endsWith(QLatin1Char(' '))) text.chop(1);
  return text;
}

}  // namespace

PaneWidget::PaneWidget(QWidget* parent) : QWidget(parent) {
  InstallPaneAccessible();
  setObjectName("pane");
  setAccessibleName("Progress");
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::IBeamCursor);
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);
  setContextMenuPolicy(Qt::ActionsContextMenu);
  setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  AddAction("Copy", QKeySequence::Copy, &PaneWidget::Copy);
  AddAction("Select All", QKeySequence::SelectAll, &PaneWidget::SelectAll);
}

void PaneWidget::AddAction(const QString& text, QKeySequence::StandardKey key, void (PaneWidget::*action)()) {
  auto* const entry = new QAction(text, this);
  entry->setShortcut(key);
  entry->setShortcutContext(Qt::WidgetShortcut);
  connect(entry, &QAction::triggered, this, action);
  addAction(entry);
}

void PaneWidget::SetUnits(double left, double bottom, double right, double top) {
  units_ = QRectF(left, bottom, right - left, top - bottom);
  update();
}

void PaneWidget::SetCharacterSize(double width, double height) {
  character_width_ = width;
  character_height_ = height;
  update();
}

void PaneWidget::DrawTextAt(double x, double y, const QString& text) {
  const int start = lines_.empty() ? 0 : Length() + 1;
  lines_.push_back({x, y, WithoutTrailingBlanks(text), start});
  update();
  QAccessibleTextInsertEvent event(this, start, lines_.back().text);
  QAccessible::updateAccessibility(&event);
}

void PaneWidget::Clear() {
  const QString removed = Text();
  lines_.clear();
  Select(0, 0);
  update();
  if (removed.isEmpty()) return;
  QAccessibleTextRemoveEvent event(this, 0, removed);
  QAccessible::updateAccessibility(&event);
}

int PaneWidget::Length() const {
  return lines_.empty() ? 0 : lines_.back().start + static_cast<int>(lines_.back().text.size());
}

QString PaneWidget::Text() const {
  QStringList texts;
  for (const Line& line : lines_) texts += line.text;
  return texts.join(QLatin1Char('\n'));
}

QString PaneWidget::SelectedText() const {
  return Text().mid(SelectionStart(), SelectionEnd() - SelectionStart());
}

void PaneWidget::Select(int anchor, int cursor) {
  if (anchor_ == anchor && cursor_ == cursor) return;
  anchor_ = anchor;
  cursor_ = cursor;
  update();
  QAccessibleTextSelectionEvent event(this, SelectionStart(), SelectionEnd());
  QAccessible::updateAccessibility(&event);
}

void PaneWidget::SelectAll() {
  Select(0, Length());
}

void PaneWidget::CopySelection() const {
  if (!SelectedText().isEmpty()) QGuiApplication::clipboard()->setText(SelectedText());
}

double PaneWidget::LinePitch() const {
  return std::floor(kLineStep / units_.height() * height());
}

QFont PaneWidget::PaneFont() const {
  QFont fitting = font();
  fitting.setStyleHint(QFont::Monospace);
  const double widest = std::min(character_width_, kLineShare / kColumns) * width();
  // Whole pixels: letters are drawn at their hinted size and never stretched.
  int size = std::max(1, static_cast<int>(character_height_ * height()));
  for (; size > 1; --size) {
    fitting.setPixelSize(size);
    const QFontMetricsF metrics(fitting);
    if (metrics.horizontalAdvance(QLatin1Char('0')) <= widest && metrics.height() <= LinePitch()) break;
  }
  fitting.setPixelSize(size);
  return fitting;
}

QRectF PaneWidget::LineRect(const Line& line, const QFontMetricsF& metrics) const {
  const double left = (line.x - units_.left()) / units_.width() * width();
  const double middle = (units_.bottom() - line.y) / units_.height() * height();
  // Never below the lower edge of its cell, so that the tails of the last line of a page are not cut.
  const double bottom = std::floor(middle + std::min(character_height_ * height(), metrics.height()) / 2.0);
  return {std::round(left), bottom - metrics.height(), metrics.horizontalAdvance(line.text), metrics.height()};
}

QRect PaneWidget::CharacterRect(int offset) const {
  const QFontMetricsF metrics(PaneFont());
  for (const Line& line : lines_) {
    const int column = offset - line.start;
    if (column < 0 || column >= line.text.size()) continue;
    const QRectF rect = LineRect(line, metrics);
    const double left = rect.left() + metrics.horizontalAdvance(line.text.left(column));
    return QRectF(left, rect.top(), metrics.horizontalAdvance(line.text[column]), rect.height()).toAlignedRect();
  }
  return {};
}

int PaneWidget::OffsetAt(QPointF point) const {
  const QFontMetricsF metrics(PaneFont());
  const Line* nearest = nullptr;
  double distance = 0.0;
  for (const Line& line : lines_) {
    const double from_middle = std::abs(LineRect(line, metrics).center().y() - point.y());
    if (nearest != nullptr && from_middle >= distance) continue;
    nearest = &line;
    distance = from_middle;
  }
  if (nearest == nullptr) return 0;
  const double from_left = point.x() - LineRect(*nearest, metrics).left();
  const double column = std::round(from_left / metrics.horizontalAdvance(QLatin1Char('0')));
  return nearest->start + static_cast<int>(std::clamp(column, 0.0, static_cast<double>(nearest->text.size())));
}

QSize PaneWidget::PageFor(const QFont& font) const {
  const QFontMetricsF metrics(font);
  const double width = metrics.horizontalAdvance(QLatin1Char('0')) / std::min(character_width_, kLineShare / kColumns);
  const double line = std::ceil(metrics.height()) * units_.height() / kLineStep;
  const double letter = QFontInfo(font).pixelSize() / character_height_;
  return {static_cast<int>(std::ceil(width)) + 1, static_cast<int>(std::ceil(std::max(line, letter))) + 1};
}

QSize PaneWidget::PageWithLetters(double points) const {
  QFont small = font();
  small.setPointSizeF(std::min(points, small.pointSizeF()));
  return PageFor(small);
}

QSize PaneWidget::sizeHint() const {
  return PageFor(font());
}

QRect PaneWidget::LastLine() const {
  if (lines_.empty()) return {};
  const QRect line = LineRect(lines_.back(), QFontMetricsF(PaneFont())).toAlignedRect();
  return {line.left(), line.top(), std::max(line.width(), 1), line.height()};
}

void PaneWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QFont font = PaneFont();
  const QFontMetricsF metrics(font);
  painter.setFont(font);
  for (const Line& line : lines_) {
    const QRectF rect = LineRect(line, metrics);
    const QPointF baseline(rect.left(), rect.top() + std::round(metrics.ascent()));
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(baseline, line.text);
    const qsizetype first = std::clamp<qsizetype>(SelectionStart() - line.start, 0, line.text.size());
    const qsizetype last = std::clamp<qsizetype>(SelectionEnd() - line.start, 0, line.text.size());
    if (first == last) continue;
    const QPointF shift(metrics.horizontalAdvance(line.text.left(first)), 0.0);
    const QString selected = line.text.mid(first, last - first);
    const QSizeF size(metrics.horizontalAdvance(selected), rect.height());
    painter.fillRect(QRectF(rect.topLeft() + shift, size), palette().highlight());
    painter.setPen(palette().color(QPalette::HighlightedText));
    painter.drawText(baseline + shift, selected);
  }
}

void PaneWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const int offset = OffsetAt(event->position());
  Select((event->modifiers() & Qt::ShiftModifier) != 0 ? anchor_ : offset, offset);
}

void PaneWidget::mouseMoveEvent(QMouseEvent* event) {
  if ((event->buttons() & Qt::LeftButton) != 0) Select(anchor_, OffsetAt(event->position()));
}

void PaneWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  const int offset = OffsetAt(event->position());
  for (const Line& line : lines_) {
    const int end = line.start + static_cast<int>(line.text.size());
    if (offset >= line.start && offset <= end) Select(line.start, end);
  }
}

}  // namespace talven
