// Bringing the text of an INS file to the form that the refinement needs: FMAP 2, LIST 4, no L.S. and no ACTA.
#pragma once

#include <cstdint>
#include <string_view>

#include "textio/LineCleaner.h"
#include "textio/TextInput.h"
#include "textio/TextOutput.h"

namespace talven {

/// What was counted in the text on the way.
struct InsCensus {
  /// Character code of the upper-case lattice letter, 0 for none.
  std::int32_t LatticeLetter = 0;
  std::int32_t CellZerrCount = 0;
  std::int32_t SfacUnitCount = 0;
  std::int32_t FvarCount = 0;
  std::int32_t FmapCount = 0;
  std::int32_t ListCount = 0;

  /// Whether a refinement can run on the file. On purpose: CELL and ZERR count alike, and so do SFAC and UNIT.
  bool IsSuitable() const {
    return LatticeLetter >= 1 && CellZerrCount - 1 >= 1 && SfacUnitCount - 1 >= 1 && FvarCount >= 1;
  }
};

/// Writes the text from its current place on in its normal form. Missing LIST and FMAP lines are put before every FVAR.
InsCensus NormaliseIns(TextInput& source, LineCleaner& cleaner, TextOutput& ins);

/// Writes the first 80 columns of a line: control characters as blanks, trailing blanks cut. On purpose: a blank line
/// is as long as the line that the cleaner has seen before it.
void WriteInsLine(std::string_view text, LineCleaner& cleaner, TextOutput& ins);

}  // namespace talven
