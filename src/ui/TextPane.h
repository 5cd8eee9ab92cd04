// The main window's page of progress lines.
#pragma once

#include "textio/FixedText.h"
#include "ui/LineBuffer.h"
#include "ui/Toolkit.h"

namespace talven {

/// A page of 42 lines in a drawing area of 100 by 300, without scrolling or history. A line beyond the last starts a
/// new page.
class TextPane {
 public:
  TextPane(Toolkit& toolkit, LineBuffer& line) : toolkit_(toolkit), line_(line) {}

  /// Draws the line buffer as the next line. With keep 0 it is the first of a new page.
  void WriteTextLine(int keep) { WriteTextLineFrom(line_.Text(), keep); }
  void WriteTextLineFrom(const Text80& text, int keep);
  /// Makes the next line the first of a page, as at the start of the program.
  void Restart() { PanePosition = 0.0F; }

 private:
  Toolkit& toolkit_;
  LineBuffer& line_;
  /// Distance of the next line from the top of the page.
  float PanePosition = 0.0F;
};

}  // namespace talven
