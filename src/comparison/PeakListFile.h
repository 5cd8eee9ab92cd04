// An LST file, the list of marked peaks that the pattern viewer writes.
//
//       Radiation Wavelength   1.54056          wavelength line, looked for in a reference only
//       Marked peaks                            head of the table
//        12.340   1000.0   7.167                2theta, intensity; the rest of the line is not looked at
#pragma once

#include "comparison/PeakList.h"
#include "textio/TextInput.h"

namespace talven {

/// Reads up to the wavelength line and gives the wavelength in Angstrom. Without such a line the text is read to its
/// end, and copper's 1.54 is given. Throws FatalIoError if the line holds no number.
float ReadWavelength(TextInput& lst);

/// Reads the table of marked peaks into the list. A text without a table gives count 0. Of more than 100 rows the last
/// takes slot 100. Throws FatalIoError for a row that holds no two numbers.
void ReadPeakList(TextInput& lst, PeakList& list);

}  // namespace talven
