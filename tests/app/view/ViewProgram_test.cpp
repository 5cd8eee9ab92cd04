// talven-view as a process: what it writes and says without a display.
#include <gtest/gtest.h>

#include <QProcess>
#include <sstream>

#include "app/view/ViewOptions.h"
#include "support/TestFiles.h"

namespace talven::test {
namespace {

struct Answer {
  int exit_code = -1;
  std::string output;
  std::string messages;
};

Answer RunView(const QStringList& arguments) {
  QProcess process;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) environment.remove(name);
  process.setProcessEnvironment(environment);
  process.start(TALVEN_VIEW, arguments);
  process.waitForFinished();
  return {process.exitCode(), process.readAllStandardOutput().toStdString(),
          process.readAllStandardError().toStdString()};
}

/// A pattern of two peaks, 0.02 degrees a step.
void WriteMade(const std::string& name) {
  std::ostringstream text;
  for (int i = 0; i <= 1000; ++i) {
    const double angle = 20.0 + 0.02 * i;
    const auto peak = [angle](double place) { return 5000.0 * std::exp2(-400.0 * (angle - place) * (angle - place)); };
    text << angle << ' ' << std::round(100.0 + 3.0 * (i % 7) + peak(25.0) + peak(33.0)) << '\n';
  }
  WriteFile(name, text.str());
}

TEST(TalvenView, ExportsWithoutADisplay) {
  const TestDirectory directory;
  WriteMade("A.XY");
  WriteMade("B.XY");
  for (const QString name : {"a.png", "a.svg", "a.pdf", "a.xy"}) {
    const Answer answer =
        RunView({"--export", name, "A.XY", "B.XY", "--arrange", "stacked", "--along", "d", "--peaks"});
    EXPECT_EQ(answer.exit_code, 0) << answer.messages;
    EXPECT_TRUE(Exists(name.toStdString()));
  }
}

TEST(TalvenView, PicksWithoutADisplay) {
  const TestDirectory directory;
  WriteMade("A.XY");
  const Answer answer = RunView({"--pick", "--wavelength", "1.5406", "MISSING.XY", "A.XY"});
  EXPECT_EQ(answer.exit_code, 1);
  EXPECT_EQ(answer.messages.substr(0, 24), "talven-view: MISSING.XY:") << "the other is picked nevertheless";
  EXPECT_EQ(answer.output.substr(0, 21), "A.peaks.LST: 2 peaks\n") << answer.output;
  const std::string list = ReadFile("A.peaks.LST");
  EXPECT_NE(list.find("Radiation Wavelength   1.5406"), std::string::npos) << list;
  EXPECT_NE(list.find("   25.0"), std::string::npos) << list;
}

TEST(TalvenView, PutsOutputsInThePlaceOfLinks) {
  const TestDirectory directory;
  WriteMade("A.XY");
  WriteMade("B.XY");
  WriteFile("other", "kept\n");
  for (const char* const name : {"a.png", "a.svg", "a.pdf", "a.2.xy", "a.xy", "A.peaks.LST"}) {
    std::filesystem::create_symlink(name[0] == 'a' ? "other" : "nowhere", name);
    const QString output(name);
    if (output != "a.2.xy")
      RunView(name[0] == 'a' ? QStringList{"--export", output, "A.XY", "B.XY"} : QStringList{"--pick", "A.XY"});
  }
  EXPECT_EQ(ReadFile("other"), "kept\n");
  EXPECT_FALSE(Exists("nowhere"));
  for (const char* const name : {"a.png", "a.svg", "a.pdf", "a.xy", "A.peaks.LST"})
    EXPECT_TRUE(std::filesystem::is_regular_file(std::filesystem::symlink_status(name))) << name;
}

TEST(TalvenView, SaysWhatIsWrong) {
  const TestDirectory directory;
  WriteMade("A.XY");
  WriteFile("BAD.XY", "no pattern\n");
  using Row = std::tuple<QStringList, int, const char*>;
  for (const auto& [arguments, exit_code, message] :
       {Row{{"--export", "a.gif", "A.XY"}, 1, "a.gif: a name that ends in .png, .svg, .pdf or .xy is needed."},
        Row{{"--export", "nowhere/a.png", "A.XY"}, 1, "nowhere/a.png cannot be written."},
        Row{{"--export", "a.png", "BAD.XY"}, 1, "BAD.XY"},
        Row{{"--pick", "JOB"}, 1, "JOB: there is no file of this name, and no JOB.ING in the current directory"},
        Row{{"--export", "a.png"}, 2, "--export: no file to read"},
        Row{{"--pick", "--export", "a.png", "A.XY"}, 2, "--export and --pick are two things: call the program twice"},
        Row{{"--up", "high"}, 2, "--up: expected linear, sqrt, log, found 'high'"},
        Row{{"--fwhm", "-1"}, 2, "--fwhm: expected a positive number, found '-1'"},
        Row{{"--width", "5"}, 2, "--width: expected a whole number from 200 to 10000, found '5'"},
        Row{{"--nonsense"}, 2, "Unknown option 'nonsense'."},
        Row{{"A.XY"}, 2, "no display can be opened; --export and --pick need none"}}) {
    const Answer answer = RunView(arguments);
    EXPECT_EQ(answer.exit_code, exit_code) << message;
    EXPECT_NE(answer.messages.find(std::string("talven-view: ") + message), std::string::npos) << answer.messages;
  }
}

TEST(TalvenView, AnswersHelpAndVersion) {
  const Answer help = RunView({"--help"});
  EXPECT_EQ(help.exit_code, 0);
  EXPECT_EQ(help.output, ViewUsage().toStdString());
  EXPECT_EQ(RunView({"--version"}).output.substr(0, 12), "talven-view ");
}

}  // namespace
}  // namespace talven::test
