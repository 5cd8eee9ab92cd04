// The drawing as assistive programs see it.
#pragma once

namespace talven {

/// Makes every PlotCanvas a chart with its title and its two axes as children; a second call does nothing.
void InstallPlotAccessible();

}  // namespace talven
