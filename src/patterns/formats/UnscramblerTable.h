// The table for the Unscrambler: all angles in quotes, then all counts, commas between, lines of at most 80 columns.
//
//     "  4.000","  4.050","  4.100"
//          20,     57,     94
#pragma once

#include "patterns/formats/PatternFile.h"
#include "textio/TextInput.h"
#include "textio/TextOutput.h"

namespace talven {

bool LooksLikeUnscramblerTable(std::string_view text);

/// Throws FatalIoError for what is neither, and for another number of counts than of angles.
PatternFile ReadUnscramblerTable(TextInput& input);
void WriteUnscramblerTable(const Pattern& pattern, TextOutput& output);

}  // namespace talven
