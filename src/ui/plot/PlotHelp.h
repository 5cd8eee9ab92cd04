// What the windows around a plot tell of it: mouse and keys, the libraries inside, the files that it reads.
#pragma once

#include <QStringList>

class QWidget;

namespace talven {

/// A box with all that mouse and keys do in a plot.
void ShowPlotKeys(QWidget* parent);

/// Paragraphs on the libraries that come with the plot, each with its licence, and what follows for the whole program.
QString PlotCredits();

/// Endings of the files that this build reads as patterns, in upper case and without points.
QStringList PatternEndings();

}  // namespace talven
