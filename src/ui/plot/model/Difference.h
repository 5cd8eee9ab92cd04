// The difference of two patterns.
#pragma once

#include <functional>

#include "crystal/Pattern.h"

namespace talven {

/// first * first_factor - second * second_factor at those angles of the first that the second covers. Between its
/// points the second is taken as straight; `second_angle` gives its 2theta for one of the first's.
Pattern DifferenceOf(const Pattern& first, double first_factor, const Pattern& second, double second_factor,
                     const std::function<double(double)>& second_angle);

}  // namespace talven
