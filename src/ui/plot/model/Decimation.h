// A curve of many points, thinned to what a screen can show.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace talven {

/// Indices of the points to draw: of each column the lowest and the highest point, so that the drawn line covers the
/// same pixels as the whole one; and the neighbours on both sides of the columns, or the ends of the curve. They rise
/// from column to column, and within columns of at most two points. `x` and `edges` rise, `edges` has one entry more
/// than there are columns, `y` is as long as `x`.
std::vector<std::size_t> PointsToDraw(std::span<const double> x, std::span<const double> y,
                                      std::span<const double> edges);

}  // namespace talven
