// Sign-flipped copies that make a hemisphere out of data for a part of reciprocal space.
#pragma once

#include <cstdint>

#include "crystal/ReflectionList.h"
#include "crystal/UnitCell.h"
#include "simulation/ReflectionSource.h"
#include "ui/Ui.h"

namespace talven {

/// Adds the copies to the end of the list: for cell class 2 with k negated, for classes 3 to 5 with up to two indices
/// negated one after the other, where the indices seen have one sign only. Other classes are left alone. If the list
/// would pass its limit, a message box says so and the list stays as it was before the pass that would have done it.
void ExpandHemisphere(Ui& ui, std::int32_t cell_class, const UnitCell& cell, const ReflectionLimits& limits,
                      ReflectionList& list, IndexRange& range);

}  // namespace talven
