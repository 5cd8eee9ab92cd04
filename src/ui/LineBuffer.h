// The one shared line of 80 characters, in which file names and pane lines are composed.
#pragma once

#include <cstdint>
#include <string_view>

#include "textio/FixedText.h"
#include "textio/LineCleaner.h"

namespace talven {

/// The shared line. No value stays in it across a call of another part of the program.
class LineBuffer {
 public:
  LineBuffer& operator=(std::string_view text) {
    text_ = text;
    return *this;
  }
  Text80& Text() { return text_; }
  std::string_view View() const { return text_.View(); }

  /// Cleans the line and gives its trimmed length, as LineCleaner does.
  std::int32_t TrimLine() { return cleaner_.CleanTextLine(text_); }

  /// The line, cleaned and cut to the length that TrimLine gives: what a copied text line is written as.
  std::string_view TrimmedLine() { return text_.First(static_cast<std::size_t>(TrimLine())); }

  /// What cleans the line, with the length that it keeps for a blank one.
  LineCleaner& Cleaner() { return cleaner_; }

 private:
  Text80 text_;
  LineCleaner cleaner_;
};

}  // namespace talven
