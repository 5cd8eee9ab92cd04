// The numbers that the atoms of a rewritten model get behind their labels.
#pragma once

#include <cstdint>

#include "shelx/ElementTable.h"

namespace talven {

/// Carbon and hydrogen count for themselves, all other labels together.
class AtomSerials {
 public:
  /// Puts the next number into a folded label: from column 2, from column 3 where that one is taken by a label other
  /// than C or H. From the ninety-ninth on every carbon is number 99, and every hydrogen likewise; of the others those
  /// behind the ninety-ninth get no number.
  AtomLabel Number(AtomLabel label);

 private:
  std::int32_t CarbonCount = 0;
  std::int32_t HydrogenCount = 0;
  std::int32_t OtherCount = 0;
};

}  // namespace talven
