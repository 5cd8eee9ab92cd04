// The colours of a plot on a light and on a dark ground.
#pragma once

#include <QColor>
#include <QPalette>
#include <vector>

namespace talven {

struct PlotColours {
  QColor ground;
  QColor text;
  QColor grid;
  /// Of the curves in turn; told apart by people who do not see all colours too.
  std::vector<QColor> curves;
  QColor difference;
  QColor background_curve;
  QColor reflections;
  QColor peak;
  QColor peak_by_hand;
  QColor companion;
  QColor cursor;

  const QColor& Curve(std::size_t index) const { return curves[index % curves.size()]; }
};

PlotColours LightColours();
PlotColours DarkColours();
/// Those that go with a window's palette.
PlotColours ColoursFor(const QPalette& palette);

}  // namespace talven
