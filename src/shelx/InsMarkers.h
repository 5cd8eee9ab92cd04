// What a run reads from the remarks of an INS file, and the name under which the job goes on.
//
//     REM WMIN              a raw structure model, which is to be rewritten
//     REM XWMIN             a model that has been rewritten already
//     REM SG 14 4 P21/c     number of the space group, formula units in the cell, symbol
//
// Instructions are told by the very characters at fixed columns: case, leading blanks and all count.
#pragma once

#include <cstdint>

#include "textio/FixedText.h"
#include "textio/InputFile.h"
#include "ui/RunState.h"

namespace talven {

enum class WminState { kNone, kWmin, kXwmin };

inline constexpr std::string_view kWminMarker = "REM WMIN";
inline constexpr std::string_view kXwminMarker = "REM XWMIN";

/// The first marker between the file's current place and its end, which is where the reading stops if there is none.
WminState FindWminMarker(InputFile& ins);

/// Makes the job name upper case, and blanks its control characters.
void FoldJobName(JobText& JobName);

/// True for a remark with the space group; not for those that say ASUN or ORGN in columns 9 to 12.
bool IsSpaceGroupLine(const Text80& line);

/// Code of the first character in columns 1 to 60 that, in upper case, lies above '@'; 0 if there is none.
std::int32_t FindLatticeLetter(const Text80& line);

/// Upper case of an ASCII letter; any other character as it is.
constexpr char UpperCase(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}

}  // namespace talven
