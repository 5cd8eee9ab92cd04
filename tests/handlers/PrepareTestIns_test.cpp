#include <gtest/gtest.h>

#include "support/Session.h"
#include "support/TestFiles.h"

namespace talven::test {
namespace {

/// What an unattended run makes of the INS of job VRAIL.
std::string Normalised(const std::string& ins) {
  WriteFile("VRAIL.INS", ins);
  RunSession({"VRAIL", "C:", "MOLPAK"}, "");
  return ReadFile("VRAIL.INS");
}

TEST(PrepareTestIns, KeepsToTheExactNameAndToWhatIsNormalisedAlready) {
  const TestDirectory directory;
  const std::string ins = "CELL 0.7 2.9 2.9 2.9 90 90 90\nLIST 4\nFMAP 2\nFVAR 1.0\nC1 1 0.1 0.2 =\n 0.3\nHKLF 4\n";
  EXPECT_EQ(Count(Normalised("FVAR\nFVAR\nFMAP\n"), "LIST 4\nFMAP 2\nFVAR\n"), 2);
  EXPECT_EQ(Normalised(ins), ins);
  if (kOnWindows) return;
  WriteFile("vrail.ins", "somebody else's");
  EXPECT_EQ(Normalised(ins), ins);
  EXPECT_EQ(ReadFile("vrail.ins"), "somebody else's") << "another spelling beside the exact one is left alone";
}

std::string Model(int labels) {
  std::string model = "TITL\nREM WMIN\nCELL 0.7 2.9 2.9 2.9 90 90 90\nREM SG 2 2 P-1\nFVAR\n";
  for (int i = 0; i < labels; ++i) model.append(1, static_cast<char>('B' + i)).append("      1  .1 .2 .3\n");
  return model + "HKLF 4\n";
}

TEST(PrepareTestIns, HasRoomForTwentyLabels) {
  const TestDirectory directory;
  const std::string twenty = Normalised(Model(20));
  EXPECT_EQ(LineOf(twenty, 6), "SFAC B   C   D   E   F   G   H   I   J   K   L   M   N   O   P   Q   R   S   T");
  EXPECT_EQ(Count(twenty, "U18   20    0.100"), 1) << twenty;
  EXPECT_EQ(Normalised(Model(21)), Model(21)) << "put back";
  EXPECT_FALSE(Exists("TEST.INS"));
  EXPECT_EQ(RunSession({"vrail", "C:", "MOLPAK"}, "").Boxes(), "More than 20 Labels in INS File\n");
}

/// Expects a fatal error of an unattended run on the job's INS, and the incoming text in the file where it is then.
void ExpectFatal(const char* job, const std::string& ins, const std::string& error, const char* kept) {
  EXPECT_EQ(RunSession({job, "C:", "MOLPAK"}, "").messages, "fatal I/O error: " + error + "\n");
  EXPECT_EQ(ReadFile(kept), ins) << error;
}

TEST(PrepareTestIns, KeepsTheIncomingTextOnAFullDiskAndOfAJobNamedTest) {
  const std::string model = Model(12);
  const auto expect_full = [](const std::string& ins, int room, const char* error, const char* kept) {
    const TestDirectory directory;
    WriteFile("vrail.ins", ins);
    if (!LimitFileSize(ins.size() + static_cast<std::size_t>(room))) GTEST_SKIP() << "no such limit here";
    ExpectFatal("vrail", ins, error, kept);
    LimitFileSize({});
  };
  const char* const full = "VRAIL.INS: cannot be written: File too large";
  expect_full(model, 9, full, "TEST.INS");
  expect_full(Replaced(model, "REM WMIN\n", ""), 9, full, "TEST.INS");
  expect_full(model, -9, "TEST.INS: cannot be made a copy of VRAIL.INS: File too large", "vrail.ins");

  const TestDirectory directory;
  WriteFile("test.ins", model);
  ExpectFatal("Test", model, "TEST.INS: cannot be made a copy of TEST.INS: File exists", "test.ins");
}

}  // namespace
}  // namespace talven::test
