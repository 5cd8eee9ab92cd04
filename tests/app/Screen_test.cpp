// What a person sees on the way: filled forms, when the pane is cleared, and the moment that a file tells.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <sstream>

#include "app/Driver.h"
#include "support/Session.h"
#include "support/TestFiles.h"
#include "ui/console/ConsoleToolkit.h"

namespace talven::test {
namespace {

/// A terminal whose clock stands still, and which writes down when the pane is cleared.
class ScreenToolkit : public ConsoleToolkit {
 public:
  ScreenToolkit(std::istream& input, std::ostream& output, std::ostream& messages)
      : ConsoleToolkit({kOwnPath, "ABC", "C:"}, input, output, messages, false), output_(output) {}

  void WGrAreaClear() override { output_ << "(cleared)\n"; }
  CalendarDate IOsDate() const override { return {2031, 3, 7}; }
  ClockTime IOsTime() const override { return {14, 5, 9}; }

 private:
  std::ostream& output_;
};

struct Seen {
  std::string pane, messages;
};

Seen RunSeen(const std::string& answers) {
  std::istringstream input(answers);
  std::ostringstream output, messages;
  ScreenToolkit toolkit(input, output, messages);
  Ui ui(toolkit);
  RunDriver(ui, *std::make_unique<Program>());
  return {output.str(), messages.str()};
}

struct Screen : testing::Test, TestDirectory {
  void SetUp() override {
    WriteFile("ABC.INS", "CELL 1.54184 4 4 4 90 90 90\n");
    WriteFile("ABC.HKL", "   1   0   0  100.00    1.00\n");
    WriteFile("ABC.ING", "t\n1.54184\n4.\n4.1\n.02\n4.\n3\n4.00 1000\n4.02 2000\n4.04 3000\n");
    WriteFile("R.LST", "   Radiation Wavelength 1.54\n   Marked peaks\n10 1000\n20 2000\n");
  }
};

TEST_F(Screen, TheFormOfPropertiesShowsTheJobsOwnAndWhatCountsInIt) {
  const std::string reformatted = RunSeen("1006=4\nok\nok\nexit\n").messages;
  const std::string simulated = RunSeen("1006=1\nok\nok\nexit\n").messages;
  for (const char* line : {" 1.54184 (", "1014 STEP Size: 0.050 (", "2Theta Max.: 40.000 (0.001 to 360)\n"})
    EXPECT_NE(simulated.find(line), std::string::npos) << line << simulated;
  EXPECT_EQ(Count(simulated, "(disabled)"), 0);
  for (const char* line : {" 1.54184 (", "1014 STEP Size: 0.02 ("})
    EXPECT_NE(reformatted.find(line), std::string::npos) << line << reformatted;
  EXPECT_EQ(Count(reformatted, "(disabled)"), 4) << "limit with its box, broadening, powder correction";
}

TEST_F(Screen, ThePaneIsClearedForANewPage) {
  const std::string simulated = RunSeen("1006=1\nok\nok\nexit\n").pane;
  EXPECT_NE(simulated.find("(cleared)\n   Reading\n"), std::string::npos) << simulated;
  const std::string compared = RunSeen("1015=on\nok\nok\nR.LST\nR.LST\nno\nno\nexit\n").pane;
  EXPECT_TRUE(compared.ends_with("\n(cleared)\n(cleared)\n")) << "after the comparison and after the next option form\n"
                                                              << compared;
  EXPECT_FALSE(compared.ends_with("\n(cleared)\n(cleared)\n(cleared)\n"));
}

TEST_F(Screen, ThePatternTellsDayMonthYearAndTime) {
  RunSeen("1006=1\nok\nok\nexit\n");
  EXPECT_EQ(LineOf(ReadFile("ABC.CPI"), 7), " 7- 3-2031 at 14: 5: 9");
}

TEST(Clock, GivesTheLocalDateAndTime) {
  if (kOnWindows) GTEST_SKIP();
  const char* const zone = std::getenv("TZ");
  const std::string zone_before = zone != nullptr ? zone : "";
  setenv("TZ", "UTC0", 1);
  tzset();
  std::istringstream input;
  std::ostringstream output;
  const ConsoleToolkit toolkit({"talven"}, input, output, output, false);
  const auto now = [] { return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now()); };
  const auto before = now();
  const CalendarDate date = toolkit.IOsDate();
  const ClockTime time = toolkit.IOsTime();
  const auto told = std::chrono::sys_days(std::chrono::year(date.year) / date.month / date.day) +
                    std::chrono::hours(time.hour) + std::chrono::minutes(time.minute) +
                    std::chrono::seconds(time.second);
  zone != nullptr ? setenv("TZ", zone_before.c_str(), 1) : unsetenv("TZ");
  tzset();
  EXPECT_LE(before, told);
  EXPECT_LE(told, now());
}

}  // namespace
}  // namespace talven::test
