// Merging of repeated reflections that stand next to each other, as measured data do.
#pragma once

#include "crystal/ReflectionList.h"

namespace talven {

/// Merges neighbours of equal indices in place, in sweeps: each sweep takes equal entries two by two, gives the pair
/// the mean of its F squared and the 2theta of its first, and leaves an odd last one for the next sweep. Three equal
/// rows x, y, z end as ((x+y)/2 + z)/2. Equal entries apart from each other stay apart.
void RemoveDuplicates(ReflectionList& list);

}  // namespace talven
