// Cleaning and measuring lines of 80 characters.
#pragma once

#include <cstdint>

#include "textio/FixedText.h"

namespace talven {

/// Replaces every character below a blank, tabs included, by a blank.
void BlankControlCharacters(Text80& line);

/// Cleans lines of control characters and measures them.
class LineCleaner {
 public:
  /// Replaces control characters by blanks and gives the last column that holds a character above blank. On purpose: an
  /// all-blank line gives the length of the last line that was none, 0 before any.
  std::int32_t CleanTextLine(Text80& line);

 private:
  std::int32_t length_ = 0;
};

}  // namespace talven
