// The text pane as assistive programs see it.
#pragma once

namespace talven {

/// Makes every pane readable as a text; a second call does nothing.
void InstallPaneAccessible();

}  // namespace talven
