// The note beside a field whose text was refused.
#pragma once

#include <QLabel>

namespace talven {

class RefusalNote : public QLabel {
 public:
  /// The note lies in `host`, in front of everything there.
  explicit RefusalNote(QWidget* host);

  /// Shows a text to the right of a field, or below it where there is no room.
  void ShowBeside(const QWidget& field, const QString& text);
};

/// What is said about a text that a field refuses: what it wants, and how a decimal comma is written instead.
QString RefusalText(const QString& typed, const QString& wanted);

}  // namespace talven
