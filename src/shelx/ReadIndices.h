// The indices of a list of reflections, HKLF 3 and 4: h, k, l in `3I4`, whatever follows them.
#pragma once

#include <cstddef>
#include <vector>

#include "crystal/Symmetry.h"
#include "textio/TextInput.h"

namespace talven {

struct IndexList {
  /// In the order of the file.
  std::vector<MillerIndex> indices;
  /// Rows passed over because their h k l, or -h -k -l, stood in an earlier one.
  std::size_t repeated = 0;
  /// Line of the first of them, from 1; 0 if there is none.
  std::size_t first_repeated = 0;
};

/// Reads rows up to 0 0 0 or the end of the text; lines that begin with `#` are none. Throws FatalIoError for a row
/// that can't be read.
IndexList ReadIndices(TextInput& hkl);

}  // namespace talven
