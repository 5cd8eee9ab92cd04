// RIET7 DAT, as DBWS, LHPM and the powder diffractometers of PSI write it: titles, a line of start, step and end, then
// the counts on lines of ten, and in some files as many standard deviations after them.
//
//     HRPT, NdNi4Mg, N18                              up to six lines of titles, or none
//     lambda=  1.49400, T=   0.000
//        2.948   0.050 162.898 18000000.              what follows on this line is passed over
//        7444.   7639.   7731.   7762.   ...
//
// Counts fill fields of eight columns; where they touch, the columns part them. What stands after the last number that
// is wanted is text for people.
#pragma once

#include <string>
#include <string_view>

#include "patterns/formats/PatternFile.h"
#include "textio/TextInput.h"
#include "textio/TextOutput.h"

namespace talven {

bool LooksLikeRiet7(std::string_view text);

/// Throws FatalIoError for a number that cannot be read, a step of 0, and fewer counts than start, step and end make or
/// more by three on the line of the last.
PatternFile ReadRiet7(TextInput& input);

/// The pattern has a step.
void WriteRiet7(const Pattern& pattern, const std::string& title, TextOutput& output);

}  // namespace talven
