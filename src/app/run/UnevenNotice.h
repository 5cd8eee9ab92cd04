// What is told of a list that is not closed under its symmetry.
#pragma once

#include <string>
#include <vector>

#include "simulation/SymmetryExpansion.h"

namespace talven {

/// Counts the lines that come out too weak and too strong, names those that are wrong by most, and says what mends it.
std::string UnevenNotice(const std::vector<UnevenLine>& uneven);

}  // namespace talven
