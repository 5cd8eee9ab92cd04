// The plot in the main window.
#pragma once

namespace talven {

class MainWindow;

/// Puts a plot into a main window, with its menus; in a build that has none, says so where the plot would be.
void PutPlotInto(MainWindow& window);

}  // namespace talven
