// The life of the program: start-up, option loop, exit path.

#include <gtest/gtest.h>

#include "support/Session.h"
#include "support/TestFiles.h"
#include "textio/FileNames.h"

namespace talven::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* kFcf = "   1   2   3      400.00        1.00      1.00 o\n";

const std::string kLongName = std::string(70, 'd') + "\xC3\xA4";

using Row = std::pair<std::string, std::string>;

/// A test directory with its directory file.
struct Driver : testing::Test, TestDirectory {
  fs::path file = Drive() / "exe/VELDOR/DIR.DEF";
  std::string work = Path().string();
};

TEST_F(Driver, StartByCallerGoesToTheDirectoryOfTheFile) {
  for (const auto& [folder, line_end] : {Row{"job folder", "   \r\n"}, Row{kLongName, "\n"}, Row{"gone", "\n"}}) {
    const fs::path job = folder == "gone" ? Path() : Path() / ToPath(folder);
    fs::create_directories(job);
    fs::current_path(Path());
    const std::string text = work + "/" + folder + line_end;
    WriteFile(file, text);
    WriteFile(job / "abc.FCF", kFcf);
    const SessionResult result = RunSession({"abc", "", "c:"}, "1006=6\nok\nexit\n");
    EXPECT_EQ(LineOf(result.output, 3), "    *****  TALVEN  X-Ray Powder Utility ****");
    EXPECT_TRUE(Exists(job / "DUMMY.HKL"));
    EXPECT_EQ(ReadFile(file), text) << "not written on this path";
    EXPECT_EQ(Started(), "mirade.exe abc\n");
  }
}

TEST_F(Driver, StartByHandAsksAndRewritesTheDirectoryFile) {
  fs::create_directories(ToPath(kLongName) / "sub");
  fs::remove_all(Drive() / "exe");
  const std::string names = "1005=LISTER\nok\n1005=listing\nok\n1005=" + std::string(21, 'a') + "\nok\n";
  const SessionResult result = RunSession({}, names + "1005=List\nok\n\nexit\n");
  EXPECT_EQ(result.exit_code, 0) << "nothing is started after a start by hand, so nothing is missed";
  EXPECT_EQ(result.Boxes(), "Job Name longer than 20 Characters\n");
  EXPECT_EQ(Count(result.messages, "\n[folder] " + FromPath(Path()) + "\n"), 1);
  EXPECT_EQ(Count(result.messages, "[file] Find the Directory -          The file name does not matter\n"), 1);
  for (const auto& [answer, directory] : {Row{"cancel", ""},
                                          Row{kLongName, "/" + kLongName},
                                          Row{"cancel", "/" + kLongName},
                                          Row{"sub", "/" + kLongName + "/sub"},
                                          {"..", "/" + kLongName}}) {
    fs::current_path(Path());
    RunSession({}, "1005=x\nok\n" + answer + "\nexit\n");
    const std::string line = FromPath(ToPath(work + directory).make_preferred());
    EXPECT_EQ(ReadFile(file), line + std::string(line.size() < 80 ? 80 - line.size() : 0, ' ') + "\n");
  }
}

TEST_F(Driver, FaultsAndTheirExitCodes) {
  fs::remove(Drive() / "exe/mirade.exe");
  const std::string twenty_one(21, 'j');
  const std::string none = ":\\exe\\VELDOR\\DIR.DEF: cannot be opened: expected an existing file, found none";
  const std::string empty = ":\\exe\\VELDOR\\DIR.DEF, line 1: expected a line with the working directory, found end";
  const std::string own_drive = "fatal I/O error: " + kOwnPath.substr(0, 1);
  using Fault = std::tuple<std::string, std::string, std::string, int, std::string>;
  for (const auto& [content, job, drive, exit_code, told] :
       {Fault{"none", "abc", "", 1, "fatal I/O error:  " + none},
        Fault{"none", "abc", "d:", 1, "fatal I/O error: d" + none},
        Fault{"", "abc", "C:", 1, "fatal I/O error: C" + empty}, Fault{"", "", "", 1, own_drive + empty},
        Fault{"folder", "", "", 1, own_drive + ":\\exe\\VELDOR\\DIR.DEF: cannot be opened for writing: "},
        Fault{"full", "", "", 1, own_drive + ":\\exe\\VELDOR\\DIR.DEF: cannot be written: No space left on device\n"},
        Fault{"here", "abc", "C:", 2, "[message] Failed to execute program\n"},
        Fault{"here", "--version", "", 0, "console "},
        Fault{"here", "--help", "", 0, "usage: talven-console [JOB DRIVE [MOLPAK]]\n"},
        Fault{"here", "-h", "C:", 0, "usage: talven-console [JOB DRIVE [MOLPAK]]\n"},
        Fault{"here", "-abc", "C:", 2, "talven-console: unknown option: -abc\nusage: "},
        Fault{"here", "", "", 2, "refused: 1006=10: expected the number of a button, 1 to 9\n"},
        Fault{"here", twenty_one, "", 2, "job name longer than 20 characters: " + twenty_one + "\nusage: "}}) {
    if (kOnWindows && content == "full") continue;
    fs::remove(file);
    if (content == "folder") fs::create_directory(file);
    if (content == "full") fs::create_symlink("/dev/full", file);
    if (content.empty() || content == "here") WriteFile(file, content.empty() ? "" : ".");
    const SessionResult result = RunSession({job, drive}, job == "abc" ? "exit\n" : "ok\n\n1006=10\n");
    EXPECT_EQ(result.exit_code, exit_code) << told;
    EXPECT_NE((result.output + result.messages).find(told), std::string::npos) << result.messages;
  }
}

TEST_F(Driver, TheRealProgramRunsHoweverItIsCalled) {
  WriteFile("a b.fcf", kFcf);
  RunProcess("\"a b\" \"\" C:", "1006=6\nok\nexit\n");
  EXPECT_EQ(ReadFile("DUMMY.HKL"), "   1   2   3    400.     20.\n");
  if (kOnWindows) return;
  // The drive comes from the full path of the program, however it was called.
  fs::create_symlink(fs::path(kTalvenConsole).parent_path(), "bin");
  WriteFile("answers", "1005=x\nok\n\nexit\n");
  for (const std::string call : {"./bin/talven-console", "PATH=\"$PWD/bin:$PATH\" talven-console"}) {
    fs::remove(file);
    EXPECT_EQ(std::system((call + " <answers >/dev/null 2>&1").c_str()), 0);
    EXPECT_TRUE(ReadFile(file).starts_with(work));
  }
  for (const std::string option : {"--help", "--version"})
    EXPECT_NE(std::system(("./bin/talven-console " + option + " >/dev/full").c_str()), 0) << option;
}

}  // namespace
}  // namespace talven::test
