// ING patterns in all their dialects, with one rule for all: the rows tell the points.
//
//     ABC (Talven)               title, any text
//        1.540000                wavelength, Angstrom
//           4.000                first 2theta, degrees
//          40.000                last 2theta
//           0.050                step; files made from XY tables hold the highest count here
//       1000                     counting time of a step
//        721                     number of points
//         4.00          20.      2theta, counts
//         4.05          57.    1   0   2      with the reflection in this step, if any
//
// Each number stands first on its line; what follows on a line of the head is passed over.
#pragma once

#include <string>
#include <string_view>

#include "patterns/formats/PatternFile.h"
#include "textio/TextInput.h"
#include "textio/TextOutput.h"

namespace talven {

/// True if six lines of one number and a row of two or more follow on a title.
bool LooksLikeIng(std::string_view text);

/// Throws FatalIoError for a head or row that cannot be read, and for fewer or more rows than the head tells.
PatternFile ReadIng(TextInput& input);

/// The pattern has a wavelength. Where its angles keep no step the head has the mean one; the rows tell the angles.
void WriteIng(const Pattern& pattern, const std::string& title, TextOutput& output);

}  // namespace talven
