// Dialog units: the measure in which forms are laid out.
#pragma once

#include <QFont>
#include <QRect>

#include "ui/forms/FormSpec.h"

namespace talven {

/// Pixels for one unit. Four units across are an average letter, eight units down a line of the font.
struct DialogUnits {
  double x = 0.0;
  double y = 0.0;

  QSize Size(int width, int height) const;
  QRect Place(const Geometry& geometry) const;
};

/// The units of a font by its own metrics.
DialogUnits UnitsOf(const QFont& font);

}  // namespace talven
