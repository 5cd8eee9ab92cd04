// From the files of a job to a sized grid.

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <random>
#include <sstream>

#include "simulation/CellGeometry.h"
#include "simulation/CellLine.h"
#include "simulation/DuplicateRemoval.h"
#include "simulation/HemisphereExpansion.h"
#include "simulation/PatternGrid.h"
#include "simulation/ReflectionSource.h"
#include "support/TestFiles.h"
#include "textio/Record.h"
#include "ui/console/ConsoleToolkit.h"

namespace talven {
namespace {

constexpr const char* kOrthorhombic = "CELL 0.71073 7 9 11 90 90 90\n";
constexpr const char* kMonoclinic = "CELL 0.71073 7 9 11 90 101 90\n";

UnitCell CellOf(const std::string& ins_text) {
  test::WriteFile("x.ins", ins_text);
  InputFile ins;
  UnitCell cell;
  EXPECT_TRUE(ins.Open("x.ins"));
  EXPECT_TRUE(ReadCellLine(ins, cell));
  DeriveReciprocalCell(cell);
  return cell;
}

/// Reading and expanding as a run does it, with room to do it again.
class Preparation {
 public:
  explicit Preparation(const std::string& cell_line)
      : toolkit_({"talven"}, input_, output_, messages_, false), ui_(toolkit_), cell(CellOf(cell_line)) {}

  void Read(const std::string& text, bool is_fcf = false) {
    test::WriteFile("x.hkl", text);
    InputFile source;
    EXPECT_TRUE(source.Open("x.hkl"));
    ReadReflectionSource(ui_, source, is_fcf, cell, limits, *list, range);
  }
  void Expand() { ExpandHemisphere(ui_, ClassifyCell(cell, 0.01), cell, limits, *list, range); }
  std::string Indices() const {
    std::string text;
    for (std::int32_t i = 1; i <= list->ReflectionCount; ++i)
      text += std::to_string(list->H[i]) + ' ' + std::to_string(list->K[i]) + ' ' + std::to_string(list->L[i]) + ", ";
    return text;
  }
  std::string Messages() const { return messages_.str(); }

 private:
  test::TestDirectory directory_;
  std::istringstream input_;
  std::ostringstream output_;
  std::ostringstream messages_;
  ConsoleToolkit toolkit_;
  Ui ui_;

 public:
  UnitCell cell;
  ReflectionLimits limits{1.54F, 0.0F};
  std::unique_ptr<ReflectionList> list = std::make_unique<ReflectionList>();
  IndexRange range;
};

TEST(ClassifyCell, ByLengthsAndAngles) {
  struct Case {
    float a, b, c, alpha, beta, gamma;
    std::int32_t expected;
  };
  for (const Case& c : {Case{7, 8, 9, 80, 85, 95, 1},
                        {7, 7.1F, 9, 80, 85, 95, 1},
                        {7, 8, 9, 90, 100, 90, 2},
                        {7, 8, 9, 90, 90, 90, 3},
                        {7, 8, 9, 90, 120, 90, 3},
                        {7, 7, 9, 90, 90, 90, 4},
                        {7, 7, 7, 90, 90, 90, 5},
                        {7, 7, 7, 60, 60, 60, 6},
                        {7, 7, 9, 90, 120, 90, 7},
                        {7, 7.3F, 9, 90, 100, 90, 11},
                        {7, 7.1F, 7.2F, 90, 95, 90, 21},
                        {7, 7, 7, 90, 120, 90, 23},
                        {4.9F, 4.9F, 5.4F, 90, 90, 120, 1},
                        {7, 7.36F, 9, 90, 90, 90, 3},
                        {7, 8, 9, 90, 90.02F, 90, 2}}) {
    UnitCell cell;
    cell.a = c.a;
    cell.b = c.b;
    cell.c = c.c;
    cell.alpha = c.alpha;
    cell.beta = c.beta;
    cell.gamma = c.gamma;
    EXPECT_EQ(ClassifyCell(cell, 0.01), c.expected) << c.a << ' ' << c.b << ' ' << c.c << ' ' << c.beta;
  }
}

TEST(CellGeometry, TriclinicCellAgreesWithTheDirectMetric) {
  test::TestDirectory directory;
  const UnitCell cell = CellOf("CELL 0.71073 9.744 9.922 10.98 64.086 78.354 63.504\n");
  EXPECT_NEAR(cell.Volume, 854.7, 0.3);
  // d(100) is the volume over the area of the b, c face.
  const double d100 = cell.Volume / (9.922 * 10.98 * std::sin(64.086 / 57.2958));
  EXPECT_NEAR(ComputeTwoTheta(cell, 1.54F, 1, 0, 0).TwoTheta, 2 * 57.2958 * std::asin(1.54 / (2 * d100)), 1e-4);
  EXPECT_NEAR(ComputeTwoTheta(CellOf("CELL 1 4 4 4 90 90 90\n"), 1.54F, 1, 1, 0).TwoTheta, 31.5956, 1e-3);
  EXPECT_NEAR(TwoThetaOf(kLargestSinTheta), 143.6, 0.05);
}

TEST(ReflectionSource, RowsOfAnHklFile) {
  Preparation p(kOrthorhombic);
  p.Read(
      "   1   0   0    5.00    5.00\n"
      "# a comment\n"
      "   1   0   1    4.90    5.00 batch 3\n"
      "  -1   2   3  -20.00    1.00\n"
      "   1   1   1     123       1\n"
      "   9   9  99    5.00    1.00\n"  // beyond reach, but it widens the index range
      "   2   0   0\n"
      "   0   0   0    0.00    0.00\n"
      "   3   0   0   10.00    1.00\n");
  EXPECT_EQ(p.Indices(), "1 0 0, 1 0 1, -1 2 3, 1 1 1, 2 0 0, ");
  EXPECT_EQ(p.list->F2[1], 5.0F) << "equal to its sigma is not below it";
  EXPECT_EQ(p.list->F2[2], 0.0F);
  EXPECT_EQ(p.list->F2[3], 0.0F);
  EXPECT_EQ(p.list->F2[4], 123.0F);
  EXPECT_EQ(p.range.IndexMax[3], 99);
  EXPECT_EQ(p.range.IndexMin[1], -1);
  p.Read("   1   0   0    5.00    1.00\n   1   x   0    5.00    1.00\n   2   0   0    5.00    1.00\n");
  EXPECT_EQ(p.Indices(), "1 0 0, ") << "an unreadable row ends the list";
  p.Read("   1   0   0    5.00    1.00\n\n   2   0   0    5.00    1.00\n");
  EXPECT_EQ(p.Indices(), "1 0 0, ") << "a blank line reads as three zero indices";
  p.limits.TwoThetaMax = 20.0F;
  p.Read("   1   0   0    5.00    1.00\n   2   0   0    5.00    1.00");
  EXPECT_EQ(p.Indices(), "1 0 0, ") << "12.6 and 25.4 degrees";
}

TEST(ReflectionSource, RowsOfAnFcfFile) {
  Preparation p(kOrthorhombic);
  const std::string narrow = "     1234.56     1240.11      3.02 o\n";
  p.Read("# head\ndata_x\nloop_\n _refln_index_h\n\n   1   0   2" + narrow + "-100   0   2" +
             narrow +                   // a text in column 1 is not counted
             "   1   0  +2" + narrow +  // nor one behind a plus
             "   1   0   3       1234.56        440.11         3.02 <\n"
             "   2   0   2" +
             narrow + "a b c d e f g h\n   3   0   2" + narrow,
         true);
  EXPECT_EQ(p.Indices(), "1 0 2, 1 0 3, 2 0 2, ") << "eight words count seven times, and end the list";
  EXPECT_EQ(p.list->F2[1], 1240.11F);
  EXPECT_EQ(p.list->F2[2], 440.11F) << "the wide layout";
  EXPECT_EQ(CountLineTokens("1 2 3"), 2);
  EXPECT_EQ(CountLineTokens("  1 +2 (3 -4 .5 \x80"), 4);
  EXPECT_EQ(CountLineTokens(std::string(79, ' ') + "x x"), 1) << "nothing behind column 80 counts";
}

TEST(ReflectionSource, StopsAtTheLimitOfKeptRows) {
  Preparation p(kOrthorhombic);
  std::string rows = "   9   9  99    5.00    1.00\n";
  for (int i = 0; i < kReflectionLimit - 1; ++i) rows += "   1   0   1    5.00    1.00\n";
  p.Read(rows);
  EXPECT_EQ(p.Messages(), "");
  p.Read(rows + "   1   1   1    7.00    1.00\n   2   0   0    5.00    1.00\n");
  EXPECT_EQ(p.Messages(), "[message] 30,000 reflection limit\n");
  EXPECT_EQ(p.list->ReflectionCount, kReflectionLimit);
  EXPECT_EQ(p.list->F2[kReflectionLimit], 7.0F);
  EXPECT_EQ(p.range.IndexMax[1], 9) << "the row behind is not read";
  p.Expand();
  EXPECT_EQ(p.list->ReflectionCount, kReflectionLimit);
  EXPECT_EQ(p.Messages(), "[message] 30,000 reflection limit\n[message] 30,000 reflection limit\n");
}

TEST(ExpandHemisphere, ByClassAndIndexRange) {
  struct Case {
    const char* cell;
    const char* rows;
    const char* expected;
  };
  for (const Case& c : {
           // An octant: first h, zero indices twice, then k where it is not zero.
           Case{kOrthorhombic, "1 2 3;0 1 1;1 0 1",
                "1 2 3, 0 1 1, 1 0 1, -1 2 3, 0 1 1, -1 0 1, 1 -2 3, 0 -1 1, -1 -2 3, 0 -1 1, "},
           {kOrthorhombic, "1 1 1;-1 -1 1", "1 1 1, -1 -1 1, "},                 // sum 5
           {kOrthorhombic, "1 1 1;-1 1 1", "1 1 1, -1 1 1, 1 -1 1, -1 -1 1, "},  // sum 4: one pass
           {kOrthorhombic, "0 1 2", "0 1 2, 0 -1 2, "},                          // h without a count copies nothing
           {kMonoclinic, "1 1 1;1 0 -1", "1 1 1, 1 0 -1, 1 -1 1, 1 0 -1, "},
           {kMonoclinic, "1 1 1;1 -1 1", "1 1 1, 1 -1 1, "},
           {kMonoclinic, "1 0 1", "1 0 1, "},
           {"CELL 1 7 7.3 9 90 90 90\n", "1 1 1", "1 1 1, -1 1 1, 1 -1 1, -1 -1 1, "},  // tetragonal
           {"CELL 1 7 7.3 9 90 100 90\n", "1 1 1", "1 1 1, "},                          // class 11
           {"CELL 1 7 8 9 80 85 95\n", "1 1 1", "1 1 1, "},                             // triclinic
       }) {
    Preparation p(c.cell);
    std::istringstream stream(c.rows);
    std::string hkl;
    for (std::string row; std::getline(stream, row, ';');) {
      std::istringstream indices(row);
      for (int index = 0; indices >> index;) hkl += std::string(Record().I(index, 4).Text());
      hkl += "   10.00    1.00\n";
    }
    p.Read(hkl);
    p.Expand();
    EXPECT_EQ(p.Indices(), c.expected) << c.cell << c.rows;
  }
}

TEST(ExpandHemisphere, ARestartCountsOnTopOfTheFirstAttempt) {
  Preparation p(kOrthorhombic);
  const std::string hk0 = "   1   1   0   10.00    1.00\n";
  p.Read(hk0);
  p.Expand();
  EXPECT_EQ(p.list->ReflectionCount, 4);
  EXPECT_EQ(p.range.AxisCountSum, 2);
  EXPECT_EQ(p.range.IndexMin[1], -1) << "left by the passes";
  EXPECT_EQ(p.range.IndexMax[1], -1);
  p.Read(hk0);
  p.Expand();
  EXPECT_GE(p.range.AxisCountSum, 6);
  EXPECT_EQ(p.list->ReflectionCount, 1) << "no expansion the second time";
}

TEST(ExpandHemisphere, CopiesBeyondTheAngleLimitAreTakenBack) {
  Preparation p("CELL 1 7 9 11 90 120.5 90\n");
  p.limits.TwoThetaMax = 23.0F;
  p.Read("   1   1  -1   10.00    1.00\n");
  p.Expand();
  EXPECT_EQ(p.Indices(), "1 1 -1, 1 -1 -1, ") << "the same angle";
  Preparation far(kOrthorhombic);
  far.Read("   6   5   4   10.00    1.00\n");
  far.cell.AStarSquared *= 2.0F;  // so that a copy lies beyond reach
  far.Expand();
  EXPECT_EQ(far.list->TwoTheta[2], TwoThetaOf(kLargestSinTheta));
}

/// The merge as a plain loop, entry after entry, with the tail of the list moved up each time.
void RemoveDuplicatesPlainly(ReflectionList& list) {
  bool merged = true;
  while (merged) {
    merged = false;
    for (std::int32_t i = 1; i < list.ReflectionCount; ++i) {
      if (list.H[i] != list.H[i + 1] || list.K[i] != list.K[i + 1] || list.L[i] != list.L[i + 1]) continue;
      merged = true;
      list.F2[i] = (list.F2[i] + list.F2[i + 1]) * 0.5F;
      --list.ReflectionCount;
      for (std::int32_t j = i + 1; j <= list.ReflectionCount; ++j) {
        list.H[j] = list.H[j + 1];
        list.K[j] = list.K[j + 1];
        list.L[j] = list.L[j + 1];
        list.F2[j] = list.F2[j + 1];
        list.TwoTheta[j] = list.TwoTheta[j + 1];
      }
    }
  }
}

TEST(RemoveDuplicates, AgreesWithThePlainLoop) {
  std::mt19937 random(7);
  for (int round = 0; round < 300; ++round) {
    auto fast = std::make_unique<ReflectionList>();
    fast->ReflectionCount = static_cast<std::int32_t>(random() % 40);
    for (std::int32_t i = 1; i <= fast->ReflectionCount; ++i) {
      fast->H[i] = static_cast<std::int32_t>(random() % 2);
      fast->K[i] = static_cast<std::int32_t>(random() % 2);
      fast->F2[i] = static_cast<float>(random() % 100'000) / 7.0F;
      fast->TwoTheta[i] = static_cast<float>(i);
    }
    auto plain = std::make_unique<ReflectionList>(*fast);
    RemoveDuplicates(*fast);
    RemoveDuplicatesPlainly(*plain);
    ASSERT_EQ(fast->ReflectionCount, plain->ReflectionCount);
    for (std::int32_t i = 1; i <= plain->ReflectionCount; ++i) {
      ASSERT_EQ(fast->H[i], plain->H[i]);
      ASSERT_EQ(fast->K[i], plain->K[i]);
      ASSERT_EQ(fast->F2[i], plain->F2[i]);
      ASSERT_EQ(fast->TwoTheta[i], plain->TwoTheta[i]);
    }
  }
}

TEST(SizeGrid, CutsWhatTheStoredStepGives) {
  struct Case {
    float highest, step, low;
    std::int32_t top, points;
  };
  auto grid = std::make_unique<PatternGrid>();
  for (const Case& c : {Case{39.2F, 0.05F, 4.0F, 40, 719},
                        {39.0F, 0.05F, 4.0F, 40, 719},
                        {39.99F, 0.05F, 4.0F, 40, 719},
                        {40.0F, 0.05F, 4.0F, 41, 739},
                        {0.0F, 0.05F, 0.5F, 1, 9},
                        {3.0F, 0.05F, 4.0F, 4, 0},
                        {100.0F, 0.001F, 4.0F, 101, 96999}}) {
    SizeGrid(c.highest, c.step, c.low, *grid);
    EXPECT_EQ(grid->TopAngle, c.top) << c.highest;
    EXPECT_EQ(grid->PointCount, c.points) << c.highest;
  }
}

}  // namespace
}  // namespace talven
