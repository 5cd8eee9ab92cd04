// What was counted in an INS file while it was brought to its normal form.
#pragma once

#include <cstdint>

namespace talven {

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

}  // namespace talven
