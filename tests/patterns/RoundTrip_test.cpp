// Files that go through more than one option, and files that are none.
#include <gtest/gtest.h>

#include <random>

#include "PatternFiles.h"

namespace talven::test {
namespace {

TEST(RoundTrip, SimulationToCifAndBack) {
  TestDirectory directory;
  WriteFile("NEW.INS", "TITL salt\nCELL 0.71073 5.64 5.64 5.64 90 90 90\n");
  WriteFile("NEW.HKL", "   1   1   1   90.00    1.00\n   2   0   0  990.00    1.00\n   2   2   0  550.00    1.00\n");
  RunSession({"NEW", "C:"}, "1006=1\nok\nok\nexit\n");
  const std::string simulated = ReadFile("NEW.ING");
  // NEW.CIF is at once the output of option 3 and the input of option 2 for a job of that name.
  RunSession({"NEW", "C:"}, "1006=3\nok\n1006=2\nok\nexit\n");
  const std::string back = ReadFile("NEW.ING");
  ASSERT_GT(CountLines(back), 500);
  for (int line = 8; line <= CountLines(back); ++line) {
    EXPECT_NEAR(std::stof(LineOf(back, line)), std::stof(LineOf(simulated, line)), 0.0051) << line;
    EXPECT_EQ(std::stof(LineOf(back, line).substr(13)), std::stof(LineOf(simulated, line).substr(12, 10))) << line;
  }
}

TEST(RoundTrip, XyToIngToTxt) {
  TestDirectory directory;
  WriteFile("ABC.TXT", "REM a peak of height 1 gives the true step\n10 0\n11 1\n12 0\n13 0\n");
  RunOptions({"9", "8"});
  EXPECT_EQ(ReadFile("ABC.TXT"), "\" 10.000\",\" 11.000\",\" 12.000\" \n      0,      1,      0 \n");
}

/// A sound file with pieces of pattern files, put together at random, in its midst.
std::string Damaged(const std::string& file, std::mt19937& random) {
  constexpr const char* kPieces[] = {"\n", " ",   "-", ".", "1E38", "9999999999", "loop_",   "REM",
                                     "0",  "nan", ",", "/", "\x80", "\r\n",       "4.5 7\n", "\t"};
  std::string text = file.substr(0, random() % file.size());
  for (auto i = random() % 12; i > 0; --i) text += kPieces[random() % std::size(kPieces)];
  return random() % 2 == 0 ? text : text + file.substr(std::min(file.size(), text.size()));
}

TEST(BadInput, EndsInAMessageOrAnErrorThatNamesTheLine) {
  TestDirectory directory;
  std::mt19937 random(3);
  for (int i = 0; i < 50; ++i) {
    for (const char* option : {"3", "4\nok\n", "4\n1006=2\nok\n", "4\n1006=3\nok\n", "8", "9", "2"}) {
      WriteFile("ABC.ING", Damaged(Ing("4\n5\n.5", 3, "4 1\n4.5 2\n5 3\n"), random));
      WriteFile("ABC.CIF", Damaged(kCifHead + kLoop + "1\n2\n", random));
      WriteFile("ABC.TXT", Damaged("REM\n4 1\n4.5 2\n5 3\n", random));
      const SessionResult result = RunOptions({option});
      const bool names_line = Fatal(result).find(", line ") == 7;
      EXPECT_TRUE(result.exit_code == 0 || (result.exit_code == 1 && names_line)) << result.messages;
    }
  }
}

}  // namespace
}  // namespace talven::test
