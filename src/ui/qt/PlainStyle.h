// The style of the window where the desktop brings none of its own.
#pragma once

class QApplication;

namespace talven {

/// Makes the outlines of round and square boxes, of fields and of group boxes stand out on a dark ground, where the
/// plain style draws them darker still.
void ClearUpPlainStyle(QApplication& application);

}  // namespace talven
