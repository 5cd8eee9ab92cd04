// The entry point of the tests that need a window system.
#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "ui/qt/DesktopSession.h"

/// Runs the tests with a connection to the window system: none that can be seen, unless QT_QPA_PLATFORM says otherwise.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (testing::GTEST_FLAG(list_tests)) return RUN_ALL_TESTS();
  // A user with decimal commas, where the system has such a locale.
  qputenv("LC_ALL", "de_DE.UTF-8");
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  // The window's memory of the user who runs the tests is left alone.
  const QTemporaryDir state;
  qputenv("XDG_STATE_HOME", state.path().toLocal8Bit());
  const talven::DesktopSession session(argv);
  return RUN_ALL_TESTS();
}
