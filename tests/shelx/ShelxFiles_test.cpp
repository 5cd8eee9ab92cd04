// The texts of SHELX files in and out, in memory.
#include <gtest/gtest.h>

#include <limits>
#include <memory>

#include "crystal/CellGeometry.h"
#include "shelx/AtomLabels.h"
#include "shelx/DummyReflections.h"
#include "shelx/HklFromFcf.h"
#include "shelx/InsMarkers.h"
#include "shelx/List4File.h"
#include "shelx/NormaliseIns.h"
#include "shelx/ReadReflections.h"
#include "shelx/RewriteWminIns.h"
#include "support/TestFiles.h"

namespace talven::test {
namespace {

TEST(List4Reader, TellsTheLayoutsApart) {
  const std::string row = "   1  -2   3       1234.56       1240.11         3.02 o";
  const List4Row wide = List4Reader(List4Values::kMeasured).Read(row).value();
  EXPECT_EQ(std::tuple(wide.K, wide.CalculatedF2, wide.MeasuredF2, wide.Sigma),
            std::tuple(-2, 1234.56F, 1240.11F, 3.02F));
  // What is not wide is no row in a list that is, and by the narrow columns without an o it begins none.
  for (const auto& [column, c] :
       {std::pair(12U, ' '), std::pair(30U, 'a'), std::pair(54U, '1'), std::pair(55U, '1'), std::pair(55U, ' ')}) {
    std::string odd = row;
    odd[column - 1] = c;
    List4Reader list(List4Values::kCalculated);
    EXPECT_TRUE(list.Read(row) && !list.Read(odd) && !BeginsList4(odd)) << column << c;
  }
}

TEST(List4Reader, HoldsTheNarrowLayoutToWhatIsWanted) {
  List4Reader calculated(List4Values::kCalculated), measured(List4Values::kMeasured);
  const auto read = [&](const char* line) { return std::pair(calculated.Read(line), measured.Read(line)); };
  EXPECT_EQ(read("   1   0   2      123456     1240.11      3.02 o").first->CalculatedF2, 1234.56F)
      << "implied decimals";
  EXPECT_EQ(read("   1   0   2      123456     1240.11      3.02 o").second->MeasuredF2, 1240.11F);
  const auto bad_sigma = read("   1   0   2     1234.56     1240.11 ********* o");
  EXPECT_TRUE(bad_sigma.first && !bad_sigma.second);
  const auto bad_value = read("   1   0   2     *******     1240.11      3.02 o");
  EXPECT_TRUE(!bad_value.first && !bad_value.second);
}

TEST(ReadReflections, GivesCountsAndTheRowThatCannotBeRead) {
  const ReciprocalCell cell = DeriveReciprocalCell({1.0F, 7.0F, 8.0F, 9.0F, 90.0F, 90.0F, 90.0F});
  const auto list = std::make_unique<ReflectionList>();
  TextInput hkl("A.HKL", "# head\n   1   0   2    5.00    1.00\n  -9  99   0    5.00    1.00\n   x\n   1   0   3\n");
  const ReflectionReading reading = ReadHklReflections(hkl, cell, {1.0F, 0.0F}, *list);
  EXPECT_EQ(std::tuple(reading.rows_read, reading.rows_kept, reading.unreadable_line, reading.unreadable_text),
            std::tuple(2, 1, 4U, std::string("   x")));
  EXPECT_EQ(std::pair(list->Range.IndexMin[1], list->Range.IndexMax[2]), std::pair(-9, 99));
  std::string rows;
  for (int i = 0; i < 29'999; ++i) rows += "   1   0   2    5.00    1.00\n";
  for (const bool limit_met : {false, true}) {
    TextInput many("A.HKL", rows);
    EXPECT_EQ(ReadHklReflections(many, cell, {1.0F, 0.0F}, *list).limit_met, limit_met);
    rows += "   1   0   3    5.00    1.00\n   x\n";
  }
}

TEST(HklFromFcf, LeavesOutRowsFromTheFirstThatIsTooLargeOn) {
  const std::string row = "   1   0   2      400.00        1.00      1.00 o\n",
                    large = Replaced(row, "   400.00", "200000.00");
  using Row = std::tuple<HklScale, const char*>;
  for (const auto& [scale, written] :
       {Row{HklScale::kAsLongAsTheyFit, "   1   0   2    400.     20.\n"},
        Row{HklScale::kAsTheyAre,
            "   1   0   2    400.     20.\n   1   0   2 200000.    447.\n   1   0   2    400.     20.\n"},
        Row{HklScale::kHundredth,
            "   1   0   2      4.      2.\n   1   0   2   2000.     45.\n   1   0   2      4.      2.\n"}}) {
    TextInput fcf("A.FCF", row + large + row);
    OutputText hkl;
    float sigma = 0.0F;
    EXPECT_EQ(WriteHklFromFcf(fcf, scale, sigma, hkl).too_large, scale == HklScale::kAsLongAsTheyFit);
    EXPECT_EQ(hkl.Text(), written);
  }
}

/// A list as far as some limits, at a wavelength of 1 Angstrom in a cubic cell of 2.9 Angstrom.
std::string WrittenList(AbsenceRule rule, const HklLimits& limits = {2, 2, 2}) {
  OutputText hkl;
  const DummyList list{DeriveDummyCell({1.0F, 2.9F, 2.9F, 2.9F, 90.0F, 90.0F, 90.0F}), 1.0F, limits, rule};
  for (std::int64_t h = 0; h < LayerCount(limits); ++h) WriteDummyLayer(list, h, hkl);
  return hkl.Text();
}

TEST(DummyReflections, LeaveOutAGeneralAbsence) {
  for (const auto& [letter, rows, present, absent] : {std::tuple('P', 64, "   1   0   0", "   0   0   0"),
                                                      {'A', 33, "   1  -1   1", "   2  -1   0"},
                                                      {'B', 34, "   1   2  -1", "   2   0  -1"},
                                                      {'C', 33, "   1  -1   2", "   1   0   0"},
                                                      {'F', 18, "   1  -1   1", "   1   1   0"},
                                                      {'I', 32, "   1  -1   0", "   2   0  -1"}}) {
    const std::string list = WrittenList(RuleOfLattice(letter));
    EXPECT_EQ(CountLines(list), rows) << letter;
    EXPECT_TRUE(Count(list, std::string(present) + "  100.00") == 1 &&
                Count(list, std::string(absent) + "  100.00") == 0);
  }
}

TEST(DummyReflections, ALimitBelowZeroLeavesNoRows) {
  constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
  for (const HklLimits& limits : {HklLimits{-1, 2, 2}, {kMost, -1, 2}, {kMost, 2, -1}})
    EXPECT_EQ(WrittenList(AbsenceRule::kNone, limits), "");
  EXPECT_EQ(CountLines(WrittenList(AbsenceRule::kNone, {1, 0, 0})), 1);
}

TEST(NormaliseIns, BlankLinesAreAsLongAsTheOneBefore) {
  TextInput ins("A.INS", "\t\nFVAR  \n\nACTA\nlist 6\n \t \nFMAP 1\n");
  OutputText normalised;
  LineCleaner cleaner;
  Text80 before("12345");
  cleaner.CleanTextLine(before);
  const InsCensus census = NormaliseIns(ins, cleaner, normalised);
  EXPECT_EQ(normalised.Text(), "     \nLIST 4\nFMAP 2\nFVAR\n    \n    ACTA\nlist 6\n      \nFMAP 2\n");
  EXPECT_EQ(std::tuple(census.FvarCount, census.FmapCount, census.ListCount, census.IsSuitable()),
            std::tuple(1, 1, 0, false));
}

TEST(RewriteWminIns, HasRoomForTwentyLabels) {
  for (const int labels : {20, 21}) {
    std::string model = "TITL\nREM WMIN\nCELL 0.7 2.9 2.9 2.9 90 90 90\nREM SG 2 2 P-1\nFVAR\n";
    for (int i = 0; i < labels; ++i) model.append(1, static_cast<char>('B' + i)).append("      1  .1 .2 .3\n");
    TextInput raw("A.INS", model + "HKLF 4\n");
    OutputText rewritten;
    LineCleaner cleaner;
    EXPECT_EQ(RewriteWminIns(raw, cleaner, rewritten), labels == 20);
    EXPECT_EQ(LineOf(rewritten.Text(), 6),
              labels == 20 ? "SFAC B   C   D   E   F   G   H   I   J   K   L   M   N   O   P   Q   R   S   T"
                           : "(no line 6)");
  }
}

TEST(AtomSerials, FromTheNinetyNinthOn) {
  AtomSerials serials;
  const AtomLabel carbon("C"), hydrogen("H"), chlorine("CL");
  for (int i = 1; i <= 98; ++i) serials.Number(carbon);
  for (const char* label : {"C99 ", "C99 "}) EXPECT_EQ(serials.Number(carbon).View(), label);
  for (int i = 1; i <= 9; ++i) serials.Number(chlorine);
  EXPECT_EQ(serials.Number(chlorine).View(), "CL10");
  EXPECT_EQ(serials.Number(AtomLabel("C A")).View(), "C11 ") << "the second digit takes the letter's column";
  for (int i = 12; i <= 99; ++i) serials.Number(chlorine);
  EXPECT_EQ(serials.Number(hydrogen).View(), "H1  ");
  EXPECT_EQ(serials.Number(chlorine).View(), "CL  ");
  EXPECT_EQ(serials.Number(hydrogen).View(), "H99 ") << "held in the place of the counter that ran over";
}

}  // namespace
}  // namespace talven::test
