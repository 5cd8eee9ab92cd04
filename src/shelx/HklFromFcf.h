// The calculated F squared of an FCF (LIST 4) as an HKL list with made-up sigmas, for a refinement to read.
#pragma once

#include <cstddef>
#include <string>

#include "textio/TextInput.h"
#include "textio/TextOutput.h"

namespace talven {

/// How values are written: as they are while none is above 100000, as they are in any case, or at one hundredth.
enum class HklScale { kAsLongAsTheyFit, kAsTheyAre, kHundredth };

struct HklFromFcf {
  /// A value is above 100000. The rows from there on are not written: the list is to be written anew.
  bool too_large = false;
  /// The first line that is no row, where there is one: it ended the list.
  bool unreadable = false;
  std::string unreadable_text;
};

/// Writes the rows of the FCF as 3I4,2F8.0 (see HklFile.h), with no head and no last row. `sigma` lasts from row to row
/// and from list to list: a row of a small value repeats it. Throws FatalIoError if there is no LIST 4 row.
HklFromFcf WriteHklFromFcf(TextInput& fcf, HklScale scale, float& sigma, TextOutput& hkl);

}  // namespace talven
