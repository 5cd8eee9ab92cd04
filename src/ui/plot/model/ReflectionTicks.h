// The reflections of a pattern, gathered by place.
#pragma once

#include <vector>

#include "ui/plot/model/PlotModel.h"

namespace talven {

/// One tick for each point that has reflections.
std::vector<ReflectionTick> GatherReflections(const Pattern& pattern);

/// The index of the entry nearest to a value, of a list that rises and is not empty.
std::size_t NearestIndex(const std::vector<double>& rising, double value);

const ReflectionTick& NearestTick(const std::vector<ReflectionTick>& ticks, double two_theta);

}  // namespace talven
