// Space groups by their symbols.
#pragma once

#include <string>
#include <vector>

#include "crystal/Symmetry.h"

namespace talven {

/// The operators of a space group by its Hall symbol, or where that is empty or none, by its Hermann-Mauguin symbol.
/// Nothing for symbols that are not known, and in a program that was built without gemmi.
std::vector<SymmetryOperator> OperatorsBySymbol(const std::string& hall, const std::string& hermann_mauguin);

}  // namespace talven
