// The screen as the handlers see it: toolkit, line buffer and text pane, which belong together.
#pragma once

#include <string_view>

#include "ui/LineBuffer.h"
#include "ui/TextPane.h"
#include "ui/Toolkit.h"

namespace talven {

struct Ui {
  explicit Ui(Toolkit& used_toolkit) : toolkit(used_toolkit), pane(used_toolkit, line) {}

  /// Puts a text into the line buffer and shows it in the pane; with keep 0 on a new page.
  void ShowLine(std::string_view text, int keep = 1) {
    line = text;
    pane.WriteTextLine(keep);
  }

  /// A message box with one OK button, no icon and a title of one blank.
  void ShowMessage(std::string_view text) { toolkit.WMessageBox({.text = text, .title = " "}); }

  Toolkit& toolkit;
  LineBuffer line;
  TextPane pane;
};

}  // namespace talven
