// Reading a reflection list from a SHELX HKL file or a SHELX FCF file of type LIST 4.
//
// HKL, 3I4,2F8.0 in columns 1 to 28 (h, k, l, F squared, sigma), ended by a row of three zero indices or by the file:
//
//        1   0   2  123.40    2.10
//
// FCF: see textio/List4Row.h; measured F squared and sigma are taken.
#pragma once

#include <cstdint>
#include <string_view>

#include "crystal/ReflectionList.h"
#include "crystal/UnitCell.h"
#include "textio/InputFile.h"
#include "ui/Ui.h"

namespace talven {

/// What decides which reflections are kept.
struct ReflectionLimits {
  /// Angstrom.
  float Wavelength = 0.0F;
  /// Degrees; 0 for no limit.
  float TwoThetaMax = 0.0F;

  bool HasAngleLimit() const { return TwoThetaMax > 0.0001; }
  bool IsBeyond(float two_theta) const { return HasAngleLimit() && two_theta > TwoThetaMax; }
};

/// Fills the list from the source, widens the index range with every row, and shows the number read. A row that can't
/// be read ends the list without a message.
void ReadReflectionSource(Ui& ui, InputFile& source, bool is_fcf, const UnitCell& cell, const ReflectionLimits& limits,
                          ReflectionList& list, IndexRange& range);

/// Counts the blanks in columns 1 to 79 that stand before a character above the comma. So a text in column 1 is not
/// counted, nor one that begins with + or a bracket. A LIST 4 row gives 7.
std::int32_t CountLineTokens(std::string_view line);

}  // namespace talven
