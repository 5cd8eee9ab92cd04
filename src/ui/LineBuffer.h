// The one shared line of 80 characters, in which file names and pane lines are composed.
#pragma once

#include <cstdint>
#include <string_view>

#include "textio/FixedText.h"

namespace talven {

/// Replaces every character below a blank, tabs included, by a blank.
void BlankControlCharacters(Text80& line);

/// The shared line. No value stays in it across a call of another part of the program.
class LineBuffer {
 public:
  LineBuffer& operator=(std::string_view text) {
    text_ = text;
    return *this;
  }
  Text80& Text() { return text_; }
  std::string_view View() const { return text_.View(); }

  /// Cleans the line of control characters and gives its trimmed length. On purpose: an all-blank line gives the
  /// length of the last call that saw another one, 0 before any.
  std::int32_t TrimLine();

  /// The line, cleaned and cut to the length that TrimLine gives: what a copied text line is written as.
  std::string_view TrimmedLine();

 private:
  Text80 text_;
  std::int32_t length_ = 0;
};

}  // namespace talven
