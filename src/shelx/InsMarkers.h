// What is read from the remarks of an INS file.
//
//     REM WMIN              a raw structure model, which is to be rewritten
//     REM XWMIN             a model that has been rewritten already
//     REM SG 14 4 P21/c     number of the space group, formula units in the cell, symbol
//
// Instructions are told by the very characters at fixed columns: case, leading blanks and all count.
#pragma once

#include <cstdint>
#include <string_view>

#include "textio/FixedText.h"
#include "textio/TextInput.h"

namespace talven {

enum class WminState { kNone, kWmin, kXwmin };

inline constexpr std::string_view kWminMarker = "REM WMIN";
inline constexpr std::string_view kXwminMarker = "REM XWMIN";

/// The first marker between the text's current place and its end, which is where the reading stops if there is none.
WminState FindWminMarker(TextInput& ins);

/// True if a text, from its current place on, has a line of a raw model that is to be rewritten.
bool HasWminMarker(TextInput& ins);

/// True for a remark with the space group; not for those that say ASUN or ORGN in columns 9 to 12.
bool IsSpaceGroupLine(const Text80& line);

/// Code of the first character in columns 1 to 60 that, in upper case, lies above '@'; 0 if there is none.
std::int32_t FindLatticeLetter(const Text80& line);

}  // namespace talven
