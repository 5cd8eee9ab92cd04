// GSAS raw data of constant wavelength: a title, a line that begins with BANK, then the points.
//
//     Sample title, 80 columns
//     BANK 1 3 3 CONST 400.0 5.0 0 0 FXYE      bank, points, records, CONST, start and step in hundredths of a degree
//     400 20 4.47                               FXYE: position in hundredths of a degree, counts, standard deviation
//     405 57 7.55                               FXY: without the deviation
//
// Type STD, the default, has ten fields of two columns (number of counters) and six (counts) on a line, type ESD five
// pairs of eight columns (counts and deviation); both take their angles from the BANK line.
#pragma once

#include <string>
#include <string_view>

#include "patterns/formats/PatternFile.h"
#include "textio/TextInput.h"
#include "textio/TextOutput.h"

namespace talven {

bool LooksLikeGsas(std::string_view text);

/// Throws FatalIoError for time-of-flight data and other types, for numbers that cannot be read and for fewer points
/// than the BANK line tells. Each bank counts as a scan.
PatternFile ReadGsas(TextInput& input, const PatternReadOptions& options);

/// FXYE with lines of 80 columns. The pattern has sigma.
void WriteFxye(const Pattern& pattern, const std::string& title, TextOutput& output);

}  // namespace talven
