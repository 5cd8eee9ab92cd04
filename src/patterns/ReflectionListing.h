// The list of a simulation's reflections, SBRAG.LST: h, k, l, 2theta in degrees and F squared, 1X,3I4,F10.2,F11.2.
//
//         1   0   2     17.85    1234.50
#pragma once

#include "crystal/ReflectionList.h"
#include "textio/TextOutput.h"

namespace talven {

/// Writes one row for each reflection.
void WriteReflectionListing(const ReflectionList& list, TextOutput& file);

}  // namespace talven
