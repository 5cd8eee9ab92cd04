// The XY file of a simulated pattern: a remark, then 2theta in degrees and counts of each point, 1X,2G15.6.
//
//      REM Mirade/Talven Shelx HKL to powder XY
//          4.00000        20.0000
#pragma once

#include <cstddef>

#include "crystal/Pattern.h"
#include "textio/TextOutput.h"

namespace talven {

void WriteXyHead(TextOutput& xy);

/// Writes the row of a point, counted from 0.
void WriteXyRow(const Pattern& pattern, std::size_t point, TextOutput& xy);

}  // namespace talven
