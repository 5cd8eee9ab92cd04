#include "patterns/ReflectionListing.h"

namespace talven {

void WriteReflectionListing(const ReflectionList& list, TextOutput& file) {
  for (std::int32_t j = 1; j <= list.ReflectionCount; ++j) {
    Record row;
    row.X(1).I(list.H[j], 4).I(list.K[j], 4).I(list.L[j], 4).F(list.TwoTheta[j], 10, 2).F(list.F2[j], 11, 2);
    file.WriteLine(row);
  }
}

}  // namespace talven
