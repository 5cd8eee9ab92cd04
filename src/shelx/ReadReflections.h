// From a SHELX HKL file, or an FCF file of type LIST 4 with its measured values, to a reflection list.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "crystal/ReflectionList.h"
#include "crystal/UnitCell.h"
#include "textio/TextInput.h"

namespace talven {

/// What was noticed on the way.
struct ReflectionReading {
  /// Rows before the end of the list, and how many of them are within the limits.
  std::int32_t rows_read = 0;
  std::int32_t rows_kept = 0;
  /// The list is full; later rows were not looked at.
  bool limit_met = false;
  /// The line whose row can't be read, from 1, and its text. It ended the list; 0 if there was none.
  std::size_t unreadable_line = 0;
  std::string unreadable_text;
  /// Lines of an FCF that begin as a row does but hold another number of texts, as where columns touch: they are passed
  /// over. The first of them, from 1; 0 if there was none.
  std::int32_t passed_over_count = 0;
  std::size_t first_passed_over = 0;
};

/// Replaces the list by the rows within reach and within the limits, and widens its range with every row. Lines with #
/// in column 1 are passed over.
ReflectionReading ReadHklReflections(TextInput& hkl, const ReciprocalCell& cell, const ReflectionLimits& limits,
                                     ReflectionList& list);

/// The same; passes over lines with another number of texts than a LIST 4 row has, too.
ReflectionReading ReadFcfReflections(TextInput& fcf, const ReciprocalCell& cell, const ReflectionLimits& limits,
                                     ReflectionList& list);

}  // namespace talven
