// Version and licences.
#pragma once

class QWidget;

namespace talven {

/// Shows the box without waiting for its end.
void ShowAbout(QWidget* parent);

}  // namespace talven
