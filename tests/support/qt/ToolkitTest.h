// A toolkit with its window open, without the program behind.
#pragma once

#include <QApplication>
#include <stdexcept>
#include <string>
#include <string_view>

#include "support/TestFiles.h"
#include "support/qt/UserScript.h"
#include "ui/forms/FormCatalogue.h"
#include "ui/qt/MainWindow.h"
#include "ui/qt/QtToolkit.h"

namespace talven::test {

inline MainWindow& Window() {
  for (QWidget* const widget : QApplication::topLevelWidgets())
    if (auto* const window = qobject_cast<MainWindow*>(widget)) return *window;
  throw std::runtime_error("no main window");
}

/// A toolkit with its window open, in a directory of its own.
struct QtToolkitTest : testing::Test, TestDirectory {
  QtToolkitTest() { toolkit.WindowOpen({.flags = 7, .title = "TALVEN"}); }
  int Outcome() { return toolkit.WDialogQuery(kOutcomeQuery); }
  void Select(std::string_view filter) { toolkit.WSelectFile(filter, kKeepDirectory, name, "Title"); }

  QtToolkit toolkit{{"/usr/bin/talven"}};
  std::string name = "*.LST";
};

}  // namespace talven::test
