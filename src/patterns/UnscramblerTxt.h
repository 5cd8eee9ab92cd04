// The text that the Unscrambler package takes: two comma-separated records, the angles in quotes and the counts, on
// lines of at most 80 characters.
//
//     "  4.000","  4.050","  4.100"
//          20,     57,     94
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "patterns/ing/IngFile.h"

namespace talven {

inline constexpr std::int32_t kLargestTxtPointCount = 30'000;

struct UnscramblerTable {
  /// 2 theta, degrees.
  std::vector<float> angles;
  std::vector<std::int32_t> counts;
};

/// The angles as they are, and the counts as whole numbers up to 999000.
UnscramblerTable MakeUnscramblerTable(std::span<const IngRow> rows);

/// The table has at least one point.
void WriteUnscramblerTxt(TextOutput& txt, const UnscramblerTable& table);

}  // namespace talven
