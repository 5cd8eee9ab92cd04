// The PAT file of a simulated pattern: four lines of text, start, step and end, then ten whole counts to a row.
//
//      Mirade/Talven Shelx HKL to RIET7 DAT
//                                             three lines of blanks
//       12.000   0.050  40.000                3F8.3
//           20      20      57      ...       10I8
#pragma once

#include "crystal/Pattern.h"
#include "textio/TextOutput.h"

namespace talven {

/// Writes the head; the pattern needs a title and a step. On purpose: the start value is the length of the title, and
/// not an angle. The end value is in degrees.
void WritePatHead(const Pattern& pattern, double end_value, TextOutput& pat);

/// Writes all complete rows of ten points. A rest of fewer is left out.
void WritePatRows(const Pattern& pattern, TextOutput& pat);

}  // namespace talven
