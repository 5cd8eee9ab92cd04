// The drawing area of the main window: lines of text at logical positions.
#pragma once

#include <QFont>
#include <QRectF>
#include <QString>
#include <QWidget>
#include <vector>

namespace talven {

/// Keeps the lines that were drawn since the last clearing and paints them at any size, in a fixed-pitch font that
/// grows with the window. The text can be selected with the mouse, copied, and read by assistive programs: for those
/// the lines, without trailing blanks, are one text with line feeds between them, and offsets count in that.
class PaneWidget : public QWidget {
  Q_OBJECT

 public:
  explicit PaneWidget(QWidget* parent = nullptr);

  /// Logical corners of the drawing area; y grows upwards.
  void SetUnits(double left, double bottom, double right, double top);
  /// Size of a character as fractions of the drawing area.
  void SetCharacterSize(double width, double height);
  /// Draws text from a logical position on, which is the middle of its left edge.
  void DrawTextAt(double x, double y, const QString& text);
  void Clear();

  QString Text() const;
  QString SelectedText() const;
  /// Selects from `anchor` up to `cursor`, which may lie in front of it.
  void Select(int anchor, int cursor);
  int SelectionStart() const { return std::min(anchor_, cursor_); }
  int SelectionEnd() const { return std::max(anchor_, cursor_); }
  int Cursor() const { return cursor_; }

  /// Where a character stands in the widget; empty beyond the text.
  QRect CharacterRect(int offset) const;
  /// The offset nearest to a point of the widget.
  int OffsetAt(QPointF point) const;
  void CopySelection() const;

  /// Where the line that was drawn last stands; empty for none.
  QRect LastLine() const;

  /// The size in which a page has letters of 8 points, the smallest that are read with ease.
  QSize EasyPage() const { return PageWithLetters(8.0); }
  /// The same with letters of 7 points, for areas that are narrower than that.
  QSize SmallestPage() const { return PageWithLetters(7.0); }
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  struct Line {
    double x = 0.0;
    double y = 0.0;
    QString text;
    /// Offset of the first character in the whole text.
    int start = 0;
  };

  void AddAction(const QString& text, QKeySequence::StandardKey key, void (PaneWidget::*action)());
  void SelectAll();
  void Copy() { CopySelection(); }
  /// Whole pixels from one line to the next.
  double LinePitch() const;
  /// The widget's font in the size in which a full line fits the width and lines don't touch.
  QFont PaneFont() const;
  QRectF LineRect(const Line& line, const QFontMetricsF& metrics) const;
  int Length() const;
  QSize PageWithLetters(double points) const;
  QSize PageFor(const QFont& font) const;

  QRectF units_{0.0, 0.0, 100.0, 300.0};
  double character_width_ = 0.012;
  double character_height_ = 0.02;
  std::vector<Line> lines_;
  int anchor_ = 0;
  int cursor_ = 0;
};

}  // namespace talven
