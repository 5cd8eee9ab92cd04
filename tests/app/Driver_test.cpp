// The life of the program: start-up, option loop, exit path.

#include <gtest/gtest.h>

#include <filesystem>

#include "app/StartUp.h"
#include "support/Session.h"
#include "support/TestFiles.h"

namespace talven::test {
namespace {

std::string DirectoryFile(const TestDirectory& directory) {
  return ReadFile(directory.Drive() / "exe/VELDOR/DIR.DEF");
}

TEST(Driver, StartByCallerGoesToTheDirectoryOfTheFile) {
  TestDirectory directory;
  std::filesystem::create_directory("job folder");
  WriteFile(directory.Drive() / "exe/VELDOR/DIR.DEF", (directory.Path() / "job folder").string() + "   \r\n");
  WriteFile("job folder/abc.FCF", "   1   2   3      400.00        1.00      1.00 o\n");
  const std::string before = DirectoryFile(directory);
  const SessionResult result = RunSession({"abc", "", "c:"}, "1006=6\nok\nexit\n");
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_TRUE(
      result.output.starts_with("\n    ****************************************\n"
                                "    *****  TALVEN  X-Ray Powder Utility ****\n"
                                "    ****************************************\n"));
  EXPECT_EQ(LineOf(result.output, 5).size(), 44U);
  EXPECT_TRUE(Exists(directory.Path() / "job folder/DUMMY.HKL"));
  EXPECT_EQ(DirectoryFile(directory), before) << "not written on this path";
  EXPECT_EQ(directory.Started(), "mirade.exe abc\n");
}

TEST(Driver, StartByHandAsksAndRewritesTheDirectoryFile) {
  TestDirectory directory;
  std::filesystem::create_directory("sub");
  std::filesystem::remove(directory.Drive() / "exe/VELDOR/DIR.DEF");
  std::filesystem::remove(directory.Drive() / "exe/VELDOR");
  const SessionResult result = RunSession(
      {}, "1005=LISTER\nok\n1005=listing\nok\n1005=" + std::string(21, 'a') + "\nok\n1005=List\nok\nsub\nexit\n");
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_EQ(result.Boxes(), "Job Name longer than 20 Characters\n");
  EXPECT_NE(result.messages.find("[file] Find the Directory -          The file name does not matter\n"),
            std::string::npos);
  std::string line = (directory.Path() / "sub").string();
  if (line.size() < 80) line.resize(80, ' ');
  EXPECT_EQ(DirectoryFile(directory), line + "\n");
  EXPECT_FALSE(Exists(directory.Path() / "../started")) << "nothing is started after a start by hand";

  WriteFile(directory.Drive() / "exe/VELDOR/DIR.DEF", directory.Path().string() + "\n");
  RunSession({}, "1005=x\nok\ncancel\nexit\n");
  EXPECT_TRUE(DirectoryFile(directory).starts_with(directory.Path().string()));
  EXPECT_EQ(DirectoryFile(directory).find("sub"), std::string::npos) << "a cancel keeps the directory of the file";
}

TEST(Driver, ADirectoryOfMoreThan80CharactersIsKeptWhole) {
  TestDirectory directory;
  const std::string name = std::string(70, 'd') + "\xC3\xA4";
  std::filesystem::create_directory(name);
  RunSession({}, "1005=x\nok\n" + name + "\nexit\n");
  EXPECT_EQ(DirectoryFile(directory), (directory.Path() / name).string() + "\n");
  WriteFile(directory.Path() / name / "x.fcf", "   1   2   3      400.00        1.00      1.00 o\n");
  RunSession({"x", "C"}, "1006=6\nok\nexit\n");
  EXPECT_TRUE(Exists(directory.Path() / name / "DUMMY.HKL"));
}

TEST(Driver, FaultsOfTheDirectoryFileAreFatal) {
  TestDirectory directory;
  const std::string file = ":\\exe\\VELDOR\\DIR.DEF";
  const auto error = [](const std::vector<std::string>& arguments) {
    const SessionResult result = RunSession(arguments, "ok\n\nexit\n");
    EXPECT_EQ(result.exit_code, 1);
    return LineOf(result.messages.substr(std::min(result.messages.find("fatal"), result.messages.size())), 1);
  };
  EXPECT_EQ(error({"abc"}), "fatal I/O error:  " + file + ": cannot be opened: expected an existing file, found none");
  EXPECT_EQ(error({"abc", "d:"}),
            "fatal I/O error: d" + file + ": cannot be opened: expected an existing file, found none");
  WriteFile(directory.Drive() / "exe/VELDOR/DIR.DEF", "");
  EXPECT_EQ(error({"abc", "C:"}),
            "fatal I/O error: C" + file + ", line 1: expected a line with the working directory, found end of file");
  EXPECT_EQ(error({}),
            "fatal I/O error: /" + file + ", line 1: expected a line with the working directory, found end of file");
  std::filesystem::remove_all(directory.Drive() / "exe/VELDOR/DIR.DEF");
  std::filesystem::create_directory(directory.Drive() / "exe/VELDOR/DIR.DEF");
  EXPECT_EQ(error({}), "fatal I/O error: /" + file + ": cannot be opened for writing: Is a directory");
}

TEST(Driver, ADirectoryThatIsGoneLeavesTheOneThatIs) {
  TestDirectory directory;
  WriteFile(directory.Drive() / "exe/VELDOR/DIR.DEF", "/no/such/folder\n");
  WriteFile("abc.fcf", "   1   2   3      400.00        1.00      1.00 o\n");
  EXPECT_EQ(RunSession({"abc", "C:"}, "1006=6\nok\n").exit_code, 0);
  EXPECT_TRUE(Exists("DUMMY.HKL"));
}

TEST(Driver, AProgramThatCannotBeStartedGivesExitCode2) {
  TestDirectory directory;
  std::filesystem::remove(directory.Drive() / "exe/mirade.exe");
  const SessionResult result = RunSession({"abc", "C:"}, "exit\n");
  EXPECT_EQ(result.exit_code, 2);
  EXPECT_EQ(result.Boxes(), "Failed to execute program\n");
}

TEST(Driver, RefusedAnswerEndsTheProcessWithCode2) {
  TestDirectory directory;
  const SessionResult result = RunSession({"abc", "C:"}, "1006=10\nok\n");
  EXPECT_EQ(result.exit_code, 2);
  EXPECT_TRUE(result.messages.ends_with(
      "answer in line 1 of the input refused: 1006=10: expected the number of a button, 1 to 9\n"));
}

TEST(CommandLine, HelpVersionAndLongNames) {
  TestDirectory directory;
  EXPECT_TRUE(RunSession({"--help"}, "").output.starts_with("usage: talven-console [JOB DRIVE [MOLPAK]]\n"));
  EXPECT_TRUE(RunSession({"--version"}, "").output.starts_with("talven-console "));
  const SessionResult too_long = RunSession({std::string(21, 'j'), "C:"}, "");
  EXPECT_EQ(too_long.exit_code, 2);
  EXPECT_TRUE(too_long.messages.starts_with("talven-console: job name longer than 20 characters: jjj"));
  EXPECT_NE(too_long.messages.find("usage: "), std::string::npos);
}

TEST(Process, TheRealProgramRunsAndTellsABrokenOutput) {
  TestDirectory directory;
  WriteFile("a b.fcf", "   1   2   3      400.00        1.00      1.00 o\n");
  EXPECT_EQ(RunProcess("'a b' C:", "1006=6\nok\nexit\n").exit_code, 0);
  EXPECT_EQ(ReadFile("DUMMY.HKL"), "   1   2   3    400.     20.\n");
  // The drive comes from the full path of the program, however it was called.
  std::filesystem::create_symlink(std::filesystem::path(TalvenConsole()).parent_path(), "bin");
  WriteFile("run.sh", "./bin/talven-console <answers && PATH=\"$PWD/bin:$PATH\" talven-console <answers\n");
  WriteFile("answers", "1005=x\nok\n\nexit\n");
  std::filesystem::remove(directory.Drive() / "exe/VELDOR/DIR.DEF");
  EXPECT_EQ(std::system("sh run.sh >/dev/null 2>&1"), 0);
  EXPECT_TRUE(DirectoryFile(directory).starts_with(directory.Path().string()));
  const SessionResult full = RunProcess("abc C:", "exit\n", ">/dev/full");
  EXPECT_EQ(full.exit_code, 1);
  EXPECT_EQ(full.messages, "fatal I/O error: standard output: cannot be written\n");
}

}  // namespace
}  // namespace talven::test
