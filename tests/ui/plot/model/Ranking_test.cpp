// Rows of a ranking as calculated lines.
#include "ui/plot/model/Ranking.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "crystal/ScatteringTables.h"
#include "support/TestFiles.h"
#include "ui/plot/MadePattern.h"

namespace talven::test {
namespace {

constexpr const char* kHead =
    "rank\tcandidate\tscore\tscore_as_given\ta\tb\tc\talpha\tbeta\tgamma\ttexture\tm1\tm2\tbmatch\tnote\n";

TEST(Ranking, RowsAreRead) {
  TextInput input("ranking.tsv", std::string(kHead) +
                                     "1\tcandidates/A.ins\t0.9876\t0.5\t5.7\t5.7\t5.7\t90\t90\t90\t\t1\t2\t3\tclose\n"
                                     "2\tB.LST\t0.5\t0.5\t\t\t\t\t\t\t\t1\t2\t3\n");
  const std::vector<RankingRow> rows = ReadRanking(input);
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0].rank + " " + rows[0].candidate + " " + rows[0].score + " " + rows[0].note,
            "1 candidates/A.ins 0.9876 close");
  ASSERT_TRUE(rows[0].cell);
  EXPECT_EQ(rows[0].cell->b, 5.7);
  EXPECT_FALSE(rows[1].cell);
}

TEST(Ranking, OtherTextsAreRefusedByLine) {
  using Row = std::pair<std::string, const char*>;
  for (const auto& [text, message] :
       {Row{"", "R.tsv, line 1: expected the head of a ranking table, found end of file"},
        Row{"rank\tname\n",
            "R.tsv, line 1: expected a column candidate, as talven-run screen writes it, found \"rank?name\""},
        Row{std::string(kHead) + "1\tA\t1\t1\t5,7\t5\t5\t90\t90\t90\n",
            "R.tsv, line 2: expected a number, found \"5,7\""},
        Row{std::string(kHead) + "1\tA\t1\t1\t5\t5\t5\t90\t90\t200\n",
            "R.tsv, line 2: expected a cell with a volume, found lengths and angles that span none"},
        Row{std::string(kHead) + "just words\n",
            "R.tsv, line 2: expected a row of a ranking table, found \"just words\""}}) {
    EXPECT_EQ(ErrorOf([&text = text] {
                TextInput input("R.tsv", text);
                ReadRanking(input);
              }),
              message);
  }
}

TEST(Ranking, SticksStandAtTheFittedCell) {
  if (!HasScatteringTables()) GTEST_SKIP() << "built without gemmi";
  const TestDirectory directory;
  WriteFile("SALT.ins",
            "TITL rock salt\nCELL 1.54056 5.64 5.64 5.64 90 90 90\nZERR 4 0 0 0 0 0 0\nLATT 4\nSFAC NA CL\nUNIT 4 4\n"
            "NA1 1 0 0 0 10.5 0.02\nCL1 2 0.5 0 0 10.5 0.02\nHKLF 4\nEND\n");
  const RankingRow row{"1", "SALT.ins", "0.99", Lattice{5.70, 5.70, 5.70, 90.0, 90.0, 90.0}, ""};
  const StickSet set = SticksOf(row, "SALT.ins", MadePattern(), 1.54056);
  EXPECT_EQ(set.title, "SALT.ins   score 0.99   5.7 5.7 5.7 90 90 90");
  const auto strongest = std::ranges::max_element(set.sticks, {}, &Stick::share);
  ASSERT_NE(strongest, set.sticks.end());
  // 2 sin^-1(1.54056/5.70), worked out by hand.
  EXPECT_NEAR(strongest->two_theta, 31.361, 0.001);
  EXPECT_EQ(strongest->share, 1.0);
  EXPECT_TRUE(std::ranges::is_sorted(set.sticks, {}, &Stick::two_theta));
  EXPECT_GE(set.sticks.front().two_theta, 20.0);
  EXPECT_NE(ErrorOf([&row] { SticksOf(row, "NONE.ins", MadePattern(), 1.54056); }).find("NONE.ins"), std::string::npos);
}

}  // namespace
}  // namespace talven::test
