// In which order a simulation opens its files, and what may stand in the place of one.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <thread>

#include "support/Session.h"
#include "support/TestFiles.h"

namespace talven::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* kIns = "CELL 1 4 4 4 90 90 90\n";
constexpr const char* kHkl = "   1   0   0  100.00    1.00\n";
constexpr const char* kAnswers = "ok\nok\nexit\n";

struct SimulationFiles : testing::Test, TestDirectory {};

TEST_F(SimulationFiles, AreOpenedInOneOrder) {
  WriteFile("ABC.INS", kIns);
  WriteFile("ABC.HKL", kHkl);
  constexpr std::array<const char*, 6> kOrder = {"ABC.ING", "ABC.TMP", "SBRAG.LST", "ABC.CPI", "ABC.PAT", "ABC.XY"};
  for (const char* const blocked : kOrder) {
    for (const char* const name : kOrder) {
      fs::remove(name);
      name == blocked ? static_cast<void>(fs::create_directory(name)) : WriteFile(name, "old");
    }
    EXPECT_EQ(RunSession({"ABC", "C:"}, kAnswers).exit_code, 1);
    bool is_before = true;
    for (const char* const name : kOrder) {
      is_before = is_before && name != blocked;
      if (name == blocked) continue;
      EXPECT_EQ(ReadFile(name), is_before ? "" : "old") << name << ", where " << blocked << " is a folder";
    }
  }
}

TEST_F(SimulationFiles, MayBeNamedPipes) {
  WriteFile("ABC.INS", kIns);
  ASSERT_EQ(mkfifo("ABC.HKL", 0600), 0);
  std::thread writer([] { WriteFile("ABC.HKL", kHkl); });
  EXPECT_EQ(RunSession({"ABC", "C:"}, kAnswers).Boxes(), "ABC.ING (+CPI, XY, PAT) written\n");
  const int reader = open("ABC.HKL", O_RDONLY | O_NONBLOCK);  // Lets the writer go where nobody has read.
  writer.join();
  close(reader);
}

TEST_F(SimulationFiles, AFolderOnADriveIsAnAnswerToTheQuestionForAFile) {
  fs::create_directories(Drive() / "jobs");
  RunSession({}, "1005=ABC\nok\nC:\\jobs\\any.HKL\nexit\n");
  EXPECT_TRUE(ReadFile(Drive() / "exe/VELDOR/DIR.DEF").starts_with((Drive() / "jobs").string()));
}

}  // namespace
}  // namespace talven::test
