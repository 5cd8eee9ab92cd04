// UXD, the text form of RAW files: settings "_NAME=VALUE", remarks after ";", and the ranges of points.
//
//     _SAMPLE='BT86'
//     _WL1=1.540600
//     _DRIVE='COUPLED'          a range begins with its drive
//     _STEPSIZE=0.015592
//     _START=3.000000
//     _2THETACOUNTS             or _2THETACPS, _2THETACOUNTSTIME: 2theta and counts (and time) to a line
//     3.000	187
//     _COUNTS                   or _CPS: counts alone, several to a line, from _START on by _STEPSIZE
#pragma once

#include <string_view>

#include "patterns/formats/PatternFile.h"
#include "textio/TextInput.h"

namespace talven {

bool LooksLikeUxd(std::string_view text);

/// Throws FatalIoError for a range that does not move 2theta, and for settings and rows that cannot be read. Each range
/// counts as a scan.
PatternFile ReadUxd(TextInput& input, const PatternReadOptions& options);

}  // namespace talven
