#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>

#include "support/TestFiles.h"
#include "textio/FileNames.h"
#include "ui/console/ConsoleToolkit.h"

namespace talven {
namespace {

/// A viewer of our own is left alone where nobody could see it; a display brings it up.
TEST(Viewer, IsNotStartedWithoutADisplay) {
  const test::TestDirectory directory;
  const std::string command = "C:\\exe\\kestra.exe ABC C:";
  std::filesystem::remove(directory.Drive() / "exe" / "kestra.exe");
  std::istringstream input;
  std::ostringstream output;
  std::ostringstream messages;
  ConsoleToolkit toolkit({FromPath(directory.Path() / "talven-console")}, input, output, messages, false);
  EXPECT_EQ(toolkit.IOsExecute(command), kExitRefused);
  EXPECT_EQ(messages.str(), "[message] Failed to execute program\n");
  const std::string viewer = FromPath(directory.Path() / "talven-view");
  test::WriteFile(viewer, "#!/bin/sh\nexit 0\n");
  std::filesystem::permissions(viewer, std::filesystem::perms::owner_all);
  for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) unsetenv(name);
  messages.str("");
  EXPECT_EQ(toolkit.IOsExecute(command), kExitNormal);
  EXPECT_EQ(messages.str(), "[program] not started, for there is no display: " + viewer + "\n");
  for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    setenv(name, "offscreen", 1);
    messages.str("");
    EXPECT_EQ(toolkit.IOsExecute(command), kExitNormal);
    EXPECT_EQ(messages.str(), "[program] starting " + viewer + " ABC\n");
    unsetenv(name);
  }
}

}  // namespace
}  // namespace talven
