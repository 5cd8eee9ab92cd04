#include "patterns/ReformatIng.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <memory>
#include <random>

#include "PatternFiles.h"
#include "patterns/FineGrid.h"
#include "patterns/WavelengthMove.h"
#include "textio/Numbers.h"

namespace talven::test {
namespace {

constexpr const char* kOther = "4\n1006=3\nok\n";
constexpr const char* kRange = "4\n4.1\n.02";
constexpr const char* kRows = "4.00 1000\n4.02 2000\n4.04 3000\n4.06 4000\n4.08 5000\n4.10 6000\n";

/// The counts of NEW.ING.
std::string NewCounts() {
  const std::string file = ReadFile("NEW.ING");
  std::string text;
  for (int line = 8; line <= CountLines(file); ++line) text += LineOf(file, line).substr(17);
  return text;
}

TEST(ReformatIng, WritesAPatternWorkedOutByHand) {
  TestDirectory directory;
  WriteFile("ABC.ING", Ing(kRange, 6, kRows));
  EXPECT_EQ(RunOptions({kOther}).pane,
            "    Wavelength  =   1.5400\n    2 ThetaMin  =    4.000\n    2 ThetaMax  =    4.100\n"
            "    Step Size   =    0.020\n    Step Time   =      4.0\n   Calculating\n    NEW.ING written\n");
  // Cells of 0.01: 1000 2000 3000 3000 4000 4000 5000 5000 6000 6000. The first is on the edge of the first bin. The
  // stored 4.02 lies below the sum of stored 4 and 0.02, so that the third belongs to the first bin too, and so on.
  // Sums: 5000 7000 9000 11000 6000, one fiftieth of which is written.
  EXPECT_EQ(ReadFile("NEW.ING"),
            "   ABC                 \n     1.5400\n          4.020\n          4.100\n          0.020\n"
            "             4.\n            5\n"
            "     4.02         100.\n     4.04         140.\n     4.06         180.\n"
            "     4.08         220.\n     4.10         120.\n");
  // A last row with an angle and no count leaves cells 9 and 10 empty, since the filling finds nothing behind.
  WriteFile("ABC.ING", Ing(kRange, 6, std::string(kRows).replace(55, 4, "six")));
  RunOptions({kOther});
  EXPECT_EQ(NewCounts(), " 100. 140. 180. 100. 100.");
}

TEST(ReformatIng, StartsOnWhatTheLastRunLeft) {
  TestDirectory directory;
  std::string cif =
      "_diffraction_radiation_wavelength 1.54\n_pd_meas_2theta_range_min 4\n_pd_meas_2theta_range_max 4.1\n"
      "_pd_meas_step_count_time 4\n_pd_meas_2theta_range_inc .02\nloop_\n    _pd_meas_counts_total\n0\n0\n0\n0\n";
  WriteFile("ABC.ING", Ing(kRange, 6, kRows));
  WriteFile("ABC.CIF", cif);
  RunOptions({kOther, "2", kOther});
  // Zeros empty the cells 1, 2, 4 and 6; the others of the first run stay and fill them:
  // 1500 3000 3000 4000 4000 5000 5000 5000 6000 6000.
  EXPECT_EQ(NewCounts(), " 100. 133. 167. 183. 100.");
  RunOptions({kOther});
  EXPECT_EQ(NewCounts(), " 100. 100. 100. 100. 100.") << "a new process";

  WriteFile("ABC.ING", Ing(kRange, 6, kRows));
  WriteFile("ABC.CIF", cif.replace(cif.find(".02"), 3, ".0123"));
  EXPECT_EQ(RunOptions({kOther, "2", kOther}).Boxes(), "") << "the grid of the first run serves an odd step";
  EXPECT_EQ(RunOptions({"4"}).Boxes(), "Step Size is NOT a Multiple of 0.005\n");
  EXPECT_EQ(ReadFile("NEW.ING"), "");
}

TEST(Capacity, IsRefusedInAMessageBoxAndTheProgramGoesOn) {
  TestDirectory directory;
  std::string many;
  for (int i = 0; i <= 100'000; ++i) many += "4 1\n";
  // Rows, a row that stands behind an unreadable one, cells, the cell of a row, bins; points of option 8.
  const std::vector<std::array<std::string, 3>> cases = {
      {Ing("4\n5\n.05", 100'001, many), kOther, "100,000"},
      {Ing("4\n5\n.05", 2'000'000'000, "4 x\n"), kOther, "100,000"},
      {Ing("0\n1001\n.05", 1, "4 1\n"), kOther, "100,000"},
      {Ing("4\n5\n.05", 1, "1005 1\n"), kOther, "100,000"},
      {Ing("4\n160\n.05", 1, "4 1\n"), "4\n1014=.001\n1006=3\nok\n", "100,000"},
      {Ing("0\n30001\n1", 1, "4 1\n"), "8", "30,000"}};
  for (const auto& [ing, option, limit] : cases) {
    WriteFile("ABC.ING", ing);
    WriteFile("NEW.ING", "");
    EXPECT_EQ(RunOptions({option, "3"}).Boxes(), limit + " point limit\n") << ing.substr(0, 40);
    EXPECT_EQ(ReadFile(option == "8" ? "ABC.TXT" : "NEW.ING"), "");
    EXPECT_TRUE(std::filesystem::remove("NEW.CIF"));
  }
}

TEST(WavelengthMove, FollowsBraggsLaw) {
  const WavelengthMove to_copper{0.71069F, 1.54F};
  const WavelengthMove to_molybdenum{1.54F, 0.71069F};
  EXPECT_NEAR(to_copper.LimitAngle(), 26.10895, 1e-5);
  EXPECT_EQ(to_molybdenum.LimitAngle(), 170.0F);
  EXPECT_NEAR(to_molybdenum.Move(26.0), 23.34328, 1e-5);
  EXPECT_FALSE((WavelengthMove{1.54F, 1.5409F}).MovesAngles());
  IngHeader header{.FirstAngle = 20.0F, .LastAngle = 60.0F};
  to_copper.MoveRange(header);
  EXPECT_NEAR(header.FirstAngle, 44.20685, 1e-5);
  EXPECT_NEAR(header.LastAngle, 143.61026, 1e-4) << "sine 0.95";
}

TEST(FineGrid, ChoosesTheStepOfThePattern) {
  for (const auto& [step, fine] :
       {std::pair(0.05F, 0.01F), std::pair(0.29F, 0.01F), std::pair(0.57F, 0.01F), std::pair(3e7F, 0.01F),
        std::pair(0.025F, 0.005F), std::pair(0.012F, 7.0F), std::pair(0.01002F, 7.0F)}) {
    float FineStep = 7.0F;
    ChooseFineStep(step, FineStep);
    EXPECT_EQ(FineStep, fine) << step;
  }
}

TEST(FineGrid, FillsGapsWithADoublingIncrement) {
  const auto counts = std::make_unique<CellCounts>();
  for (const auto& [cell, count] : {std::pair(2, 8.0F), {7, 40.0F}, {12, -40.0F}, {14, 1.0F}, {216, 7.0F}})
    (*counts)[cell] = count;
  FillGaps(*counts, 300);
  // Cell 9 first becomes 0 and is then a gap of its own; from cell 15 there are 201 cells to the next one set.
  std::int32_t cell = 1;
  for (const int count : {8, 8, 16, 24, 40, 72, 40, 20, -40, -40, -120, -40, 1, 1, 0})
    EXPECT_EQ((*counts)[cell++], static_cast<float>(count));
}

/// The filling as it is told, without a bound to the search.
void FillGapsPlainly(CellCounts& counts, std::int32_t cell_count) {
  for (std::int32_t i = 1; i == 1 || i < cell_count; ++i) {
    if (counts[i] != 0.0F) continue;
    std::int32_t j = i + 1;
    while (j <= kLargestReformatCount && counts[j] == 0.0F) ++j;
    if (j > kLargestReformatCount || j - i > 200) return;
    const double p = counts[i - 1];
    double d = std::fabs(counts[j] - p) / (j - i);
    if (counts[j] < p) d = -d;
    for (std::int32_t m = 1; m <= j - i; ++m, d *= 2) counts[i - 1 + m] = Store(p + d);
  }
}

struct Grid {
  CellCounts counts, plain_counts;
  ReformatArray angles, X, Y;
};

/// One bin against every cell.
float SumPlainly(const Grid& grid, std::int32_t cell_count, double low, double high) {
  float sum = 0.0F;
  for (std::int32_t j = 1; j <= cell_count; ++j)
    if (grid.angles[j] > low && grid.angles[j] < high) sum = Store(sum + static_cast<double>(grid.plain_counts[j]));
  return sum;
}

TEST(FineGrid, FillsAndBinsAsThePlainLoopsDo) {
  std::mt19937 random(4);
  const auto pick = [&random](int low, int high) { return std::uniform_int_distribution(low, high)(random); };
  const auto grid = std::make_unique<Grid>();  // Kept from pattern to pattern, leftovers and all.
  for (int pattern = 0; pattern < 60; ++pattern) {
    const std::int32_t cell_count = pick(0, 3000);
    const int widest = pick(0, 9) == 0 ? 260 : pick(1, 60);
    for (std::int32_t cell = 1; cell <= cell_count + 5; cell += pick(1, widest))
      grid->counts[cell] = grid->plain_counts[cell] = static_cast<float>(pick(0, 4) == 0 ? 0 : pick(-50, 90000)) / 7;
    const float fine_step = pick(0, 1) == 0 ? 0.01F : 0.005F;
    const float first = static_cast<float>(pick(1, 4000)) / 100;
    const double step = static_cast<float>(pick(1, 200)) / 1000;
    const std::int32_t bin_count = Truncate(cell_count * static_cast<double>(fine_step) / step) + 2;
    ASSERT_TRUE(BuildFineGrid(first, first + 31.0F, fine_step, grid->angles));
    FillGaps(grid->counts, cell_count);
    FillGapsPlainly(grid->plain_counts, cell_count);
    BinCells(grid->angles, grid->counts, cell_count, first, step, bin_count, grid->X, grid->Y);
    double low = first;
    for (std::int32_t bin = 1; bin <= bin_count; ++bin, low += step) {
      const float sum = SumPlainly(*grid, cell_count, low, low + step);
      ASSERT_TRUE(grid->Y[bin] == sum || (std::isnan(grid->Y[bin]) && std::isnan(sum)))
          << "pattern " << pattern << ", bin " << bin;
    }
  }
}

}  // namespace
}  // namespace talven::test
