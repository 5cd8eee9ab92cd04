// The plain table of X and Y that option 9 takes.
//
//     REM a remark
//     4.00   20
//     4.05   57
#pragma once

#include "patterns/ing/IngFile.h"

namespace talven {

/// Points that are read of a table; what comes after is not looked at.
inline constexpr std::size_t kLargestXyPointCount = 100'000;

/// Reads a table as a pattern of copper radiation. On purpose the head gives the highest Y, but at least 0, for the
/// step. Throws FatalIoError, also for a blank line and for a table of fewer than two points.
IngPattern ReadXyTxt(TextInput& txt);

}  // namespace talven
