#include "ui/CommandLookup.h"

#include <gtest/gtest.h>

#include "support/TestFiles.h"
#include "textio/FileNames.h"

namespace talven::test {
namespace {

namespace fs = std::filesystem;

const std::string kSuffix = kOnWindows ? ".exe" : "";

/// Where the program is, as seen from the job's folder, with its arguments in brackets; `none` for none.
std::string Found(const std::string& command, const std::string& own_path) {
  const CommandLookup lookup = LookUpCommand(command, own_path);
  if (!lookup.command) return "none";
  EXPECT_EQ(lookup.looked_at.back(), lookup.command->program);
  const std::string program = FromPath(fs::relative(ToPath(lookup.command->program)));
  return Replaced(program, kSuffix.empty() ? "." : kSuffix, kSuffix.empty() ? "." : "") + "[" +
         lookup.command->arguments + "]" + (lookup.is_companion ? " ours" : "") +
         (lookup.needs_display ? " window" : "");
}

TEST(CommandLookup, CompanionsStandInWhereTheDriveHasNone) {
  const TestDirectory directory;
  const std::string own_path = FromPath(directory.Path() / "bin" / "talven-console");
  const std::string refine = "C:\\exe\\kvrl97.exe ABC C: AUTO";
  const std::string view = "C:\\exe\\kestra.exe ABC C:";
  fs::remove(directory.Drive() / "exe" / "kestra.exe");
  EXPECT_EQ(Found(refine, own_path), "none");
  EXPECT_EQ(LookUpCommand(refine, own_path).looked_at.size(), 4U) << "with and without .exe, beside, in libexec";
  EXPECT_EQ(LookUpCommand("C:\\exe\\mirade.none ABC", own_path).looked_at.size(), 1U);
  fs::create_directories("libexec/talven/talven-view" + kSuffix);
  fs::create_directories("bin");
  WriteFile("talven-fcalc" + kSuffix, "");
  EXPECT_EQ(Found(refine, own_path) + Found(view, own_path), "nonenone") << "not in the current folder, and no folder";
  WriteFile("libexec/talven/talven-fcalc" + kSuffix, "");
  EXPECT_EQ(Found(refine, own_path), "libexec/talven/talven-fcalc[ ABC C: AUTO] ours");
  EXPECT_EQ(Found(refine, "talven-console"), "none") << "a program that does not know where it is";
  WriteFile("bin/talven-fcalc" + kSuffix, "");
  WriteFile("bin/talven-view" + kSuffix, "");
  EXPECT_EQ(Found(refine, own_path), "bin/talven-fcalc[ ABC C: AUTO] ours");
  EXPECT_EQ(Found(view, own_path), "bin/talven-view[ ABC] ours window");
  directory.WriteProgram("kvrl97.exe", "");
  EXPECT_FALSE(LookUpCommand(refine, own_path).is_companion) << "what is on the drive always wins";
  EXPECT_EQ(LookUpCommand(refine, own_path).command->arguments, " ABC C: AUTO");
}

}  // namespace
}  // namespace talven::test
