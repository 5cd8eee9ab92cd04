// Sietronics CPI: ten lines of head, then one count to a line.
//
//     SIETRONICS XRD SCAN
//     4.000                      first 2theta
//     39.900                     last 2theta
//     0.050                      step
//     Cu                         anode
//     1.540600                   wavelength, Angstrom
//     1-1-2020                   date
//     1.0                        counting time
//     Sample                     title
//     SCANDATA
//     20
//     57
//
// The CPI of a simulation of ours has the length of the pattern's title in the place of the first angle, and the angle
// at which the grid ends in the place of the last one.
#pragma once

#include <string>
#include <string_view>

#include "patterns/formats/PatternFile.h"
#include "textio/TextInput.h"
#include "textio/TextOutput.h"

namespace talven {

bool LooksLikeCpi(std::string_view text);

/// Throws FatalIoError for a head or count that cannot be read, and for fewer or more counts than the head tells.
PatternFile ReadCpi(TextInput& input);

/// The pattern has a wavelength and a step.
void WriteCpi(const Pattern& pattern, const std::string& title, const std::string& date, TextOutput& output);

}  // namespace talven
