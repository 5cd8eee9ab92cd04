// The life of the program: start-up, option loop, exit path.

#include <gtest/gtest.h>

#include "support/Session.h"
#include "support/TestFiles.h"

namespace talven::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* kFcf = "   1   2   3      400.00        1.00      1.00 o\n";

/// A test directory with its directory file.
struct Installation : TestDirectory {
  fs::path file = Drive() / "exe/VELDOR/DIR.DEF";
  std::string work = Path().string();
};

TEST(Driver, StartByCallerGoesToTheDirectoryOfTheFile) {
  const std::string long_name = std::string(70, 'd') + "\xC3\xA4";
  using Row = std::pair<std::string, std::string>;
  for (const auto& [folder, line_end] : {Row{"job folder", "   \r\n"}, Row{long_name, "\n"}, Row{"gone", "\n"}}) {
    Installation at;
    const fs::path job = folder == "gone" ? at.Path() : at.Path() / folder;
    fs::create_directories(job);
    const std::string text = at.work + "/" + folder + line_end;
    WriteFile(at.file, text);
    WriteFile(job / "abc.FCF", kFcf);
    const SessionResult result = RunSession({"abc", "", "c:"}, "1006=6\nok\nexit\n");
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_TRUE(
        result.output.starts_with("\n    ****************************************\n"
                                  "    *****  TALVEN  X-Ray Powder Utility ****\n"));
    EXPECT_TRUE(Exists(job / "DUMMY.HKL"));
    EXPECT_EQ(ReadFile(at.file), text) << "not written on this path";
    EXPECT_EQ(at.Started(), "mirade.exe abc\n");
  }
}

TEST(Driver, StartByHandAsksAndRewritesTheDirectoryFile) {
  Installation at;
  const std::string long_name = std::string(70, 'd') + "\xC3\xA4";
  fs::create_directories(long_name + "/sub");
  fs::remove_all(at.Drive() / "exe");
  const std::string names = "1005=LISTER\nok\n1005=listing\nok\n1005=" + std::string(21, 'a') + "\nok\n";
  const SessionResult result = RunSession({}, names + "1005=List\nok\n\nexit\n");
  EXPECT_EQ(result.exit_code, 0) << "nothing is started after a start by hand, so nothing is missed";
  EXPECT_EQ(result.Boxes(), "Job Name longer than 20 Characters\n");
  EXPECT_NE(result.messages.find("[file] Find the Directory -          The file name does not matter\n"),
            std::string::npos);
  using Row = std::pair<std::string, std::string>;
  for (const auto& [answer, directory] : {Row{"cancel", ""}, Row{long_name, "/" + long_name},
                                          Row{"cancel", "/" + long_name}, Row{"sub", "/" + long_name + "/sub"}}) {
    fs::current_path(at.Path());
    RunSession({}, "1005=x\nok\n" + answer + "\nexit\n");
    std::string line = at.work + directory;
    line.resize(std::max<std::size_t>(line.size(), 80), ' ');
    EXPECT_EQ(ReadFile(at.file), line + "\n");
  }
}

TEST(Driver, FaultsOfTheDirectoryFileAreFatal) {
  Installation at;
  const std::string name = ":\\exe\\VELDOR\\DIR.DEF";
  const auto expect = [&](const std::vector<std::string>& arguments, const std::string& error) {
    const SessionResult result = RunSession(arguments, "ok\n\nexit\n");
    EXPECT_EQ(result.exit_code, 1);
    EXPECT_TRUE(result.messages.ends_with("fatal I/O error: " + error + "\n")) << result.messages;
  };
  const std::string empty = ", line 1: expected a line with the working directory, found end of file";
  expect({"abc"}, " " + name + ": cannot be opened: expected an existing file, found none");
  expect({"abc", "d:"}, "d" + name + ": cannot be opened: expected an existing file, found none");
  WriteFile(at.file, "");
  expect({"abc", "C:"}, "C" + name + empty);
  expect({}, "/" + name + empty);
  fs::remove(at.file);
  fs::create_directory(at.file);
  expect({}, "/" + name + ": cannot be opened for writing: Is a directory");
}

TEST(Driver, ExitCodesAndWhatTheyTell) {
  Installation at;
  fs::remove(at.Drive() / "exe/mirade.exe");
  using Row = std::tuple<std::vector<std::string>, std::string, int, std::string>;
  for (const auto& [arguments, answers, exit_code, told] :
       {Row{{"abc", "C:"}, "exit\n", 2, "[message] Failed to execute program\n"},
        Row{{"abc", "C:"},
            "1006=10\nok\n",
            2,
            "answer in line 1 of the input refused: 1006=10: expected the number of a button, 1 to 9\n"},
        Row{{"--help"}, "", 0, "usage: talven-console [JOB DRIVE [MOLPAK]]\n"},
        Row{{"--version"}, "", 0, "talven-console "},
        Row{{std::string(21, 'j'), "C:"},
            "",
            2,
            "talven-console: job name longer than 20 characters: " + std::string(21, 'j') + "\nusage: "}}) {
    const SessionResult result = RunSession(arguments, answers);
    EXPECT_EQ(result.exit_code, exit_code) << told;
    EXPECT_NE((result.output + result.messages).find(told), std::string::npos) << result.messages;
  }
}

TEST(Process, TheRealProgramRunsAndTellsABrokenOutput) {
  Installation at;
  WriteFile("a b.fcf", kFcf);
  EXPECT_EQ(RunProcess("'a b' C:", "1006=6\nok\nexit\n").exit_code, 0);
  EXPECT_EQ(ReadFile("DUMMY.HKL"), "   1   2   3    400.     20.\n");
  const SessionResult full = RunProcess("abc C:", "exit\n", ">/dev/full");
  EXPECT_EQ(full.exit_code, 1);
  EXPECT_EQ(full.messages, "fatal I/O error: standard output: cannot be written\n");
  // The drive comes from the full path of the program, however it was called.
  fs::create_symlink(fs::path(TalvenConsole()).parent_path(), "bin");
  WriteFile("answers", "1005=x\nok\n\nexit\n");
  for (const std::string call : {"./bin/talven-console", "PATH=\"$PWD/bin:$PATH\" talven-console"}) {
    fs::remove(at.file);
    EXPECT_EQ(std::system((call + " <answers >/dev/null 2>&1").c_str()), 0);
    EXPECT_TRUE(ReadFile(at.file).starts_with(at.work));
  }
}

}  // namespace
}  // namespace talven::test
