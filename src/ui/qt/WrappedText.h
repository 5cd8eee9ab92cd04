// A text that is broken where there is no room for it, and can be selected.
#pragma once

#include <QString>

class QTextEdit;
class QWidget;

namespace talven {

/// As wide as its longest line, up to a limit; in less room as high as its broken lines, which a long path has too.
/// `name` is for assistive programs.
QTextEdit* MakeWrappedText(const QString& text, const QString& name, QWidget* parent);

}  // namespace talven
