// Whole runs of peaks, screen and rank in a scratch directory: a true structure among wrong ones, in one run, on more
// threads, and in shares.
#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "RunTool.h"
#include "crystal/ScatteringTables.h"
#include "support/Session.h"
#include "support/TestFiles.h"

namespace talven::test {
namespace {

/// Two atoms in a monoclinic cell.
std::string InsOf(double scale, double x) {
  std::ostringstream ins;
  ins << "TITL two atoms\nCELL 1.54056 " << 6.1 * scale << " " << 8.3 * scale << " " << 5.2 * scale
      << " 90 99 90\nZERR 2 0 0 0 0 0 0\nLATT -1\nSYMM -X, 0.5+Y, -Z\nSFAC FE\nUNIT 4\nFVAR 1\n"
      << "FE1 1 0.1 0.2 0.3 11 0.02\nFE2 1 " << x << " 0.45 0.12 11 0.02\nHKLF 4\nEND\n";
  return ins.str();
}

struct Screening : testing::Test, TestDirectory {
  Screening() {
    WriteFile("T.INS", InsOf(1.02, 0.6));
    RunTool("simulate T.INS --data model --textbook --fwhm 0.12 --step 0.02 --two-theta-max 70 --formats xy -q");
    for (int i = 0; i < 12; ++i)
      WriteFile("C" + std::to_string(10 + i) + ".INS", InsOf(1.0, i == 7 ? 0.6 : 0.35 + 0.02 * i));
    WriteFile("BAD.INS", "TITL no cell\nHKLF 4\nEND\n");
    candidates_ = " C10.INS C11.INS C12.INS BAD.INS";
    for (int i = 3; i < 12; ++i) candidates_ += " C" + std::to_string(10 + i) + ".INS";
  }
  void SetUp() override {
    if (!HasScatteringTables()) GTEST_SKIP() << "built without gemmi";
  }
  std::string candidates_;
};

TEST_F(Screening, FindsTheStructureWhateverThreadsAndShares) {
  const std::string common = "T.XY" + candidates_ + " --wavelength 1.54056 -q";
  const Outcome one = RunTool("screen -j 1 " + common);
  EXPECT_EQ(one.exit_code, 1) << "one candidate can't be read";
  EXPECT_NE(one.messages.find("BAD.INS"), std::string::npos);
  EXPECT_TRUE(LineOf(one.output, 2).starts_with("1\tC17.INS\t0.99")) << one.output;
  EXPECT_NE(LineOf(one.output, 2).find("\t6.22"), std::string::npos) << "the fitted axis is 2 % longer";
  EXPECT_EQ(RunTool("screen -j 3 " + common).output, one.output);
  for (const std::string part : {"1/3", "2/3", "3/3"})
    WriteFile("S" + part.substr(0, 1) + ".tsv", RunTool("screen --part " + part + " " + common).output);
  EXPECT_EQ(RunTool("rank T.XY S3.tsv S1.tsv S2.tsv -q").output, one.output);
  EXPECT_EQ(RunTool("rank T.XY S3.tsv S1.tsv S2.tsv --top 1 -q").output,
            LineOf(one.output, 1) + "\n" + LineOf(one.output, 2) + "\n");
  const Outcome missing = RunTool("rank T.XY S3.tsv S2.tsv");
  EXPECT_EQ(missing.exit_code, 1);
  EXPECT_NE(missing.messages.find("a share is missing"), std::string::npos) << missing.messages;
  const Outcome texture = RunTool("screen --texture T.XY C16.INS C17.INS --wavelength 1.54056 -q");
  EXPECT_TRUE(LineOf(texture.output, 2).starts_with("1\tC17.INS\t0.99")) << texture.output;
}

TEST_F(Screening, SaysWhatIsMissing) {
  const std::pair<std::string, std::string> cases[] = {
      {"screen T.XY", "expected a measured pattern and candidates, found one file only"},
      {"screen T.XY C10.INS", "T.XY: the wavelength is not known; --wavelength tells it"},
      {"screen NONE.XY C10.INS", "NONE.XY"},
      {"screen T.XY C10.INS --fwhm 0", "--fwhm"},
      {"rank T.XY T.XY", "expected the head line of a table of screen --part"},
  };
  for (const auto& [arguments, text] : cases) {
    const Outcome outcome = RunTool(arguments);
    EXPECT_NE(outcome.exit_code, 0) << arguments;
    EXPECT_NE(outcome.messages.find(text), std::string::npos) << outcome.messages;
  }
}

TEST_F(Screening, TellsWhatManyCandidatesHaveInCommonOnce) {
  for (const std::string name : {"U1.INS", "U2.INS", "U3.INS"}) {
    std::string ins = InsOf(1.0, 0.6);
    ins.replace(ins.find("UNIT 4"), 6, "UNIT 9");
    WriteFile(name, ins);
  }
  const Outcome outcome = RunTool("screen T.XY U1.INS C10.INS U2.INS U3.INS --wavelength 1.54056 -j 2");
  EXPECT_EQ(outcome.messages,
            "U1.INS: line 7: UNIT is not what the atoms give for a cell: FE 4\n"
            "candidates: 2 more notices of this kind: UNIT is not what the atoms give for a cell\n");
}

TEST_F(Screening, PeaksAreListedForTheComparison) {
  const Outcome peaks = RunTool("peaks T.XY --wavelength 1.54056 -q");
  EXPECT_EQ(peaks.exit_code, 0) << peaks.messages;
  EXPECT_EQ(LineOf(peaks.output, 1), "file\tpeaks\talpha2\tfwhm\twavelength\toutput");
  const std::string list = ReadFile("T.peaks.LST");
  EXPECT_TRUE(
      list.starts_with(" Peaks: 2theta in degrees, height above the background\n"
                       "   Radiation Wavelength   1.54056\n   Marked Peaks\n"))
      << list;
  const Outcome compared = RunTool("compare T.peaks.LST T.peaks.LST");
  EXPECT_EQ(compared.exit_code, 0) << compared.messages;
  // The list takes part in a screening too, on either side.
  const Outcome screened = RunTool("screen T.peaks.LST C16.INS C17.INS T.peaks.LST -q");
  EXPECT_NE(screened.output.find("T.peaks.LST\t0.9"), std::string::npos) << screened.output << screened.messages;
  EXPECT_LT(screened.output.find("C17.INS"), screened.output.find("C16.INS"));
}

}  // namespace
}  // namespace talven::test
