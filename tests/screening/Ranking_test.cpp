#include "screening/Ranking.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "screening/ShareTable.h"
#include "textio/FatalIoError.h"

namespace talven {
namespace {

CoarseRow RowOf(std::size_t index, double score) {
  CoarseRow row;
  row.index = index;
  row.name = std::string("C").append(std::to_string(index));
  row.score = {score, 1.01, 0.5 * score};
  row.lattice = Lattice{.a = 5.0, .b = 6.0, .c = 7.0};
  return row;
}

FittedRow FittedOf(std::size_t index, double score) {
  return {RowOf(index, 0.1), {.score = score, .lattice = Lattice{.a = 5.0, .b = 6.0, .c = 7.0}}};
}

TEST(Ranking, StageTwoIsForTheBestTenth) {
  for (const auto& [count, all, expected] :
       {std::tuple(1, false, 1), {49, false, 49}, {400, false, 50}, {501, false, 51}, {501, true, 501}}) {
    std::vector<CoarseRow> rows;
    for (int i = 1; i <= count; ++i) rows.push_back(RowOf(static_cast<std::size_t>(i), (i * 7919 % 10) / 10.0));
    EXPECT_EQ(SortCoarse(rows, all), static_cast<std::size_t>(expected));
    for (std::size_t i = 1; i < rows.size(); ++i)
      EXPECT_TRUE(rows[i - 1].score.score > rows[i].score.score ||
                  (rows[i - 1].score.score == rows[i].score.score && rows[i - 1].index < rows[i].index));
  }
}

TEST(Ranking, NotesTellWhatIsCloseSameAndCoarse) {
  std::vector<FittedRow> fitted = {FittedOf(3, 0.5), FittedOf(2, 0.9), FittedOf(1, 0.895), FittedOf(9, 0.2)};
  fitted[3].fitted.lattice.reset();
  fitted[3].fitted.scale = 0.99;
  SortFitted(fitted);
  const std::vector<RankedRow> rows = Rank(fitted, {RowOf(7, 0.95), RowOf(8, 0.9)}, {{}, 0, {}, {}, {}, 4});
  const std::pair<std::string_view, std::string_view> expected[] = {{"C2", "close"},  {"C1", "same as C2"},
                                                                    {"C3", ""},       {"C9", "d times 0.9900"},
                                                                    {"C7", "coarse"}, {"C8", "coarse, same as C7"}};
  ASSERT_EQ(rows.size(), std::size(expected));
  for (std::size_t i = 0; i < rows.size(); ++i) {
    EXPECT_EQ(rows[i].rank, i + 1);
    EXPECT_EQ(rows[i].name, expected[i].first);
    EXPECT_EQ(rows[i].note, expected[i].second);
  }
  EXPECT_NEAR(rows[4].lattice->a, 5.05, 1e-12) << "a coarse row shows the cell at its best scale";
}

std::string Head() {
  std::string head;
  for (const std::string_view column : kShareColumns) head.append(head.empty() ? "" : "\t").append(column);
  return head + "\n";
}

std::string Line(int index, int total, const std::string& power = "3.5") {
  return std::to_string(index) + "\t" + std::to_string(total) +
         "\tdir\\\\a\\tb.ins\t0.1234567890123456\t0.25\t0.9975\t0.5\t1e-09\t0\t5\t6\t7\t90\t90\t90\t" + power +
         "\t1.54056\t0.12\t1\n";
}

std::string Failed(int index, int total) {
  return std::to_string(index) + "\t" + std::to_string(total) + "\tbad.ins" + std::string(16, '\t') + "\n";
}

ShareTable Read(const std::string& text) {
  TextInput input("S.tsv", text);
  return ReadShareTable(input);
}

TEST(ShareTable, GivesBackWhatWasWritten) {
  const ShareTable table = Read(Head() + Line(2, 3) + Failed(3, 3));
  ASSERT_EQ(table.rows.size(), 1U);
  EXPECT_EQ(table.rows[0].name, "dir\\a\tb.ins");
  EXPECT_EQ(table.rows[0].score.score, 0.1234567890123456);
  EXPECT_EQ(table.rows[0].score.score_as_given, 0.25);
  EXPECT_EQ(table.rows[0].score.scale, 0.9975);
  EXPECT_EQ(table.rows[0].comparison.m2, 1e-9);
  EXPECT_EQ(table.rows[0].lattice->c, 7.0);
  EXPECT_TRUE(table.options.texture);
  EXPECT_EQ(table.options.wavelength, 1.54056);
  EXPECT_EQ(table.failed, std::vector<std::size_t>{3});
  const ShareTable whole = JoinShares({table, Read(Head()), Read(Head() + Line(1, 3))});
  ASSERT_EQ(whole.rows.size(), 2U);
  EXPECT_EQ(whole.rows[0].index, 1U);
}

TEST(ShareTable, RefusesWhatDoesNotBelongTogether) {
  const struct {
    std::vector<std::string> texts;
    std::string_view error;
  } cases[] = {
      {{Head() + Line(1, 2)}, "the tables hold 1 of 2 candidates; a share is missing"},
      {{Head() + Line(1, 2), Head() + Line(1, 2)}, "candidate 1 stands in the tables twice"},
      {{Head() + Line(1, 2), Head() + Line(2, 3)}, "the tables are not shares of one screening"},
      {{Head() + Line(1, 2), Head() + Line(2, 2, "3.6")}, "the tables are not shares of one screening"},
      {{"rank\tcandidate\n"},
       "S.tsv, line 1: expected the head line of a table of screen --part, found \"rank?candidate\""},
      {{""}, "S.tsv, line 1: expected the head line of a table of screen --part, found end of file"},
      {{Head() + "1\t2\n"}, "S.tsv, line 2: expected 19 values, found 2"},
      {{Head() + Line(1, 2, "much")}, "S.tsv, line 2: expected a number as power, found \"much\""},
      {{Head() + Line(0, 2)}, "S.tsv, line 2: expected a count as index, found \"0\""},
      {{Head() + Line(1, 2) + Line(2, 3)}, "S.tsv, line 3: expected one total in all rows, found \"3\""},
  };
  for (const auto& c : cases) {
    std::string error;
    try {
      std::vector<ShareTable> shares;
      for (const std::string& text : c.texts) shares.push_back(Read(text));
      JoinShares(shares);
    } catch (const std::runtime_error& e) {
      error = e.what();
    } catch (const std::invalid_argument& e) {
      error = e.what();
    }
    EXPECT_EQ(error, c.error);
  }
}

}  // namespace
}  // namespace talven
