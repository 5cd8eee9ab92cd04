#include "simulation/PatternGrid.h"

#include "textio/Numbers.h"

namespace talven {

void SizeGrid(float highest_two_theta, float step, float two_theta_min, PatternGrid& grid) {
  grid.TopAngle = Truncate(highest_two_theta) + 1;
  grid.PointCount = Truncate((static_cast<double>(grid.TopAngle) - two_theta_min) * (1.0 / step));
}

}  // namespace talven
