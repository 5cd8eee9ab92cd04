// The layouts in which the converters write ING files. Readers do not depend on them; other programs' files do.
#pragma once

#include <string_view>

#include "patterns/ing/IngHeader.h"
#include "textio/OutputFile.h"

namespace talven {

/// The layout of a reformatted pattern and of one made from an XY file: title 3X,A20, then 3X with F8.4, F12.3 three
/// times, F12.0 and I10. `job_name` has all its 20 characters.
void WriteIngHeader(OutputFile& ing, std::string_view job_name, const IngHeader& header);

/// 1X,F8.2,3X,F10.0
void WriteIngRow(OutputFile& ing, float angle, float intensity);

/// The layout of a pattern made from a CIF, without its title: 3X,F10.4 five times and 3X,I14.
void WriteIngHeaderFromCif(OutputFile& ing, const IngHeader& header);

/// 3X,F10.3,F12.0
void WriteIngRowFromCif(OutputFile& ing, float angle, float intensity);

}  // namespace talven
