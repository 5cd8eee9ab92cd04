// What is done to a reflection list before its pattern: sign-flipped copies, and the merging of repeated reflections.
#pragma once

#include <cstdint>

#include "crystal/ReflectionList.h"
#include "crystal/UnitCell.h"

namespace talven {

/// Adds copies that make a hemisphere out of data for a part of reciprocal space to the end of the list: for cell class
/// 2 with k negated, for classes 3 to 5 with up to two indices negated one after the other, where the indices seen have
/// one sign only. Other classes are left alone. False if the list would pass its limit: it stays as it was before the
/// pass that would have done it.
bool ExpandHemisphere(std::int32_t cell_class, const ReciprocalCell& cell, const ReflectionLimits& limits,
                      ReflectionList& list);

/// Merges neighbours of equal indices in place, in sweeps: each sweep takes equal entries two by two, gives the pair
/// the mean of its F squared and the 2theta of its first, and leaves an odd last one for the next sweep. Three equal
/// rows x, y, z end as ((x+y)/2 + z)/2. Equal entries apart from each other stay apart.
void RemoveDuplicates(ReflectionList& list);

}  // namespace talven
