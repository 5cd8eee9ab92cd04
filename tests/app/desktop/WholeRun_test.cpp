// Whole runs of the desktop program, driven by keys and clicks.

#include <sys/stat.h>

#include <QApplication>
#include <QProgressBar>
#include <algorithm>
#include <array>
#include <chrono>
#include <clocale>
#include <fstream>
#include <sstream>
#include <thread>

#include "app/CommandLine.h"
#include "app/desktop/DesktopProgram.h"
#include "support/Session.h"
#include "support/TestFiles.h"
#include "support/qt/UserScript.h"
#include "ui/qt/MainWindow.h"
#include "ui/qt/MessageDialog.h"

namespace talven::test {
namespace {

constexpr const char* kPath = "/usr/bin/talven";
constexpr std::array kResults = {"SALT.ING", "SALT.CPI", "SALT.XY", "SALT.PAT", "SBRAG.LST"};

/// Job SALT, rock salt with a few reflections, and the program run on it.
class DesktopProgram : public testing::Test {
 protected:
  DesktopProgram() {
    WriteFile("SALT.INS", "TITL NaCl\nCELL 0.71073 5.6402 5.6402 5.6402 90 90 90\nLATT 4\n");
    WriteFile("SALT.HKL",
              "   1   1   1   25.00    1.00\n   2   0   0  900.00    9.00\n   2   2   0  700.00    7.00\n"
              "   3   1   1   20.00    1.00\n   2   2   2  300.00    3.00\n   0   0   0    0.00    0.00\n");
  }

  /// The exit code of a run with these steps of the user.
  static int Run(const std::vector<std::string>& arguments, std::deque<Step> steps) {
    const UserScript user(std::move(steps));
    return RunDesktop({arguments, {}});
  }

  /// The job's files but for the line that holds the time of the run.
  static std::string Results() {
    std::string all;
    for (const char* name : kResults) all += ReadFile(name) + "\n";
    return Replaced(all, LineOf(ReadFile("SALT.CPI"), 7), "TIME");
  }

  TestDirectory directory;
};

MainWindow& Window() {
  for (QWidget* const widget : QApplication::topLevelWidgets())
    if (auto* const window = qobject_cast<MainWindow*>(widget)) return *window;
  throw std::runtime_error("no main window");
}

TEST_F(DesktopProgram, SimulatesAsTheTerminalProgramDoes) {
  ASSERT_EQ(RunSession({"SALT", "C:"}, "1006=1\nok\n1006=2\n1014=0.02\nok\nexit\n").exit_code, 0);
  const std::string expected = Results();
  for (const char* name : kResults) std::filesystem::remove(name);
  std::filesystem::current_path("..");
  const auto name_job = [](QDialog& form) {
    TypeInto(form, 1005, "SALT");
    QTest::keyClick(&Edit(form, 1005), Qt::Key_Return);
  };
  const auto find_directory = [](QDialog& selector) {
    EXPECT_EQ(selector.windowTitle(), "Find the Directory -          The file name does not matter");
    for (const char* name : {"work", "SALT.HKL"}) AcceptName(selector, name);
  };
  const auto set_up_pattern = [](QDialog& form) {
    Click(Field(form, 1007));
    TypeInto(form, 1014, "0.02");
    Click(Field(form, 1));
  };
  const auto acknowledge = [](QDialog& box) { QTest::keyClick(&box, Qt::Key_Return); };
  const Step enter = Press(Qt::Key_Return), escape = Press(Qt::Key_Escape);
  EXPECT_EQ(Run({kPath}, {name_job, find_directory, enter, set_up_pattern, acknowledge, escape}), 0);
  EXPECT_EQ(Results(), expected);
  EXPECT_EQ(QLocale::system().decimalPoint(), ",") << "the user's language has commas";
  EXPECT_STREQ(std::localeconv()->decimal_point, ".") << "and numbers have points";
  const QByteArray place = QByteArray::fromStdString(directory.Path().string()).leftJustified(80) + '\n';
  EXPECT_EQ(ReadFile(directory.Drive() / "exe/VELDOR/DIR.DEF"), place.toStdString());
}

TEST_F(DesktopProgram, GoesFromAFileToAPatternWithTwoButtons) {
  ASSERT_EQ(RunSession({"SALT", "C:"}, "1006=1\nok\nok\nexit\n").exit_code, 0);
  const std::string expected = Results();
  for (const char* result : kResults) std::filesystem::remove(result);
  const std::filesystem::path folder = std::filesystem::current_path();
  std::filesystem::current_path("..");
  const Step enter = Press(Qt::Key_Return);
  const UserScript user({enter, enter, enter, Press(Qt::Key_Escape)});
  const DesktopStart start = TakeOpenedFile({kPath, "--open", (folder / "SALT.HKL").string()});
  EXPECT_EQ(start.arguments, std::vector<std::string>{kPath});
  EXPECT_EQ(RunDesktop(start), 0);
  EXPECT_EQ(Results(), expected);
}

/// A disk that takes 64 KiB in 30 ms, in the place of a file.
class SlowFile {
 public:
  explicit SlowFile(const char* name) {
    mkfifo(name, 0600);
    reader_ = std::thread([name = std::filesystem::absolute(name)] {
      std::ifstream file(name, std::ios::binary);
      for (std::string part(64 << 10, ' '); file.read(part.data(), 64 << 10);)
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
    });
  }
  ~SlowFile() { reader_.join(); }

 private:
  std::thread reader_;
};

TEST_F(DesktopProgram, ShowsHowFarALongListHasCome) {
  WriteFile("SALT.INS", "TITL wide\nCELL 0.71073 40 40 40 90 90 90\nLATT 1\n");
  const SlowFile list("DUMMY.HKL");
  std::vector<int> shown;
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, [&shown] {
    const auto* const bar = Window().findChild<QProgressBar*>("progress");
    if (bar->isVisible() && bar->maximum() > 0 && (shown.empty() || shown.back() != bar->value()))
      shown.push_back(bar->value());
  });
  const auto choose_list = [&watch](QDialog& form) {
    Click(Field(form, 1010));
    watch.start(10);
    Click(Field(form, 1));
  };
  const auto leave = [&watch](QDialog& form) {
    watch.stop();
    EXPECT_FALSE(Window().findChild<QProgressBar*>("progress")->isVisible());
    QTest::keyClick(&form, Qt::Key_Escape);
  };
  EXPECT_EQ(Run({kPath, "SALT", "C:"}, {choose_list, Press(Qt::Key_Return), leave}), 0);
  ASSERT_GT(shown.size(), 4U);
  EXPECT_TRUE(std::ranges::is_sorted(shown) && shown.back() > 80) << shown.back();
}

TEST(DesktopStart, TakesOneFileThatIsThere) {
  EXPECT_EQ(TakeOpenedFile({kPath, "--open"}).arguments.size(), 1U) << "a menu entry without a file";
  EXPECT_EQ(TakeOpenedFile({kPath, "ABC", "C:"}).arguments.size(), 3U);
  std::ostringstream help;
  EXPECT_EQ(AnswerCommandLine("talven", {kPath, "--help"}, help, help), 0);
  EXPECT_NE(help.str().find("talven --open FILE\n"), std::string::npos);
  EXPECT_THROW(TakeOpenedFile({kPath, "--open", "/none/such.INS"}), std::invalid_argument);
  EXPECT_THROW(TakeOpenedFile({kPath, "--open", "/tmp", "ABC"}), std::invalid_argument);
}

TEST_F(DesktopProgram, LeavesWhenTheWindowIsClosedAndTellsAFatalError) {
  EXPECT_EQ(Run({kPath, "SALT", "C:"}, {[](QDialog&) { Window().close(); }}), 0);
  EXPECT_EQ(directory.Started(), "mirade.exe SALT\n");
  WriteFile("SALT.INS", "CELL 0.71073 5.6402 x 5.6402 90 90 90\n");
  const auto read_error = [](QDialog& box) {
    EXPECT_TRUE(dynamic_cast<MessageDialog&>(box).Text().startsWith("SALT.INS, line 1: "));
    QTest::keyClick(&box, Qt::Key_Return);
  };
  EXPECT_EQ(Run({kPath, "SALT", "C:"}, {Press(Qt::Key_Return), read_error}), 1);
}

TEST_F(DesktopProgram, SaysThatThereIsNoDisplay) {
  const std::string command = std::string("env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM '") + TALVEN_DESKTOP;
  const int status = std::system((command + "' >output 2>messages").c_str());
  EXPECT_EQ(WEXITSTATUS(status), 2);
  EXPECT_EQ(CountLines(ReadFile("messages")), 1);
  EXPECT_NE(ReadFile("messages").find("talven-console"), std::string::npos) << ReadFile("messages");
}

}  // namespace
}  // namespace talven::test
