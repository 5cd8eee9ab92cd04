// Version and licences.
#pragma once

class QString;
class QWidget;

namespace talven {

/// Shows the box without waiting for its end. `credits` are paragraphs on libraries beside Qt.
void ShowAbout(QWidget* parent, const QString& credits);

}  // namespace talven
