// Tables of two or three columns: XY, XYE, XYD, and our own XY with or without its remark.
//
//     # 2theta intensity su          remarks: # ! ; % ' " // /* ... */ REM, and any text ahead of the first point
//        10.00    167.00   12.60     2theta in degrees, counts, standard deviation where there is a third column
//        10.05    157.00   12.50
//
// Columns stand apart by blanks, tabs, semicolons or commas. A comma is a decimal sign where columns stand apart
// without it and no number of the file has a point: "10,05 157,5". A wavelength told in a remark is taken. A number
// alone ahead of the rows, as in CHI files, is how many they are.
#pragma once

#include "patterns/formats/PatternFile.h"
#include "textio/TextInput.h"
#include "textio/TextOutput.h"

namespace talven {

/// Throws FatalIoError for rows of other widths or of another number than told, text among the rows, and commas that
/// may mean either.
PatternFile ReadXyTable(TextInput& input);

/// Angles and counts with nothing else; with sigma as third column.
void WriteXy(const Pattern& pattern, TextOutput& output);
void WriteXye(const Pattern& pattern, TextOutput& output);

}  // namespace talven
