// Rewriting a raw structure model (REM WMIN) as an INS file that SHELXL takes.
//
//     TITL raw model                              TITL raw model
//     REM WMIN                                    REM XWMIN
//     CELL 0.71073 6.2 7.5 5.9 90 101.3 90        CELL 0.71073 6.2 7.5 5.9 90 101.3 90
//     REM SG 14 4 P21/c                           ZERR  4 .002 .002 .002 0. 0. 0.
//     FVAR 0.25 1.0                         >>    REM SG 14 4 P21/c
//     O1     1   0.12360   0.50000   0.25000      SFAC O   C
//     C7     1   0.20000   0.30000   0.40000      UNIT    1   1
//     HKLF 4                                      FVAR
//     END                                         O1     1    0.124    0.500    0.250 11.0 .05
//                                                 C1     2    0.200    0.300    0.400 11.0 .05
//                                                 HKLF 4
#pragma once

#include "textio/LineCleaner.h"
#include "textio/TextInput.h"
#include "textio/TextOutput.h"

namespace talven {

/// Writes the model `raw`, read from its start, in the new form to `ins`; every line between FVAR and HKLF is an atom,
/// and nothing after HKLF is used. The cleaner tells the length of a blank line, as in WriteInsLine. False if the
/// atoms have more different labels than the element table has room for; nothing is written then. Throws FatalIoError,
/// also where FVAR, HKLF after it or a number is missing.
bool RewriteWminIns(TextInput& raw, LineCleaner& cleaner, TextOutput& ins);

}  // namespace talven
