// Whole simulations in memory: the list of reflections behind one, what is noticed, and two of them at once.
#include "simulation/Simulation.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <thread>

#include "crystal/CellGeometry.h"
#include "patterns/CpiFile.h"
#include "patterns/PatFile.h"
#include "patterns/ReflectionListing.h"
#include "patterns/XyFile.h"
#include "patterns/ing/SimulatedIng.h"
#include "shelx/CellLine.h"
#include "shelx/ReadReflections.h"
#include "support/TestFiles.h"

namespace talven::test {
namespace {

/// What a run reads and asks for. A source is an FCF if its rows are those of LIST 4.
struct Job {
  std::string cell, rows;
  PatternOptions options;
  bool is_fcf = false;
};

SimulationResult RunJob(const Job& job, SimulationData& data) {
  TextInput ins("A.INS", "CELL 1 " + job.cell + "\n"), rows("A.HKL", job.rows);
  const UnitCell cell = ReadCellLine(ins).value();
  data.list.Range = IndexRange();
  const auto read = job.is_fcf ? ReadFcfReflections : ReadHklReflections;
  read(rows, DeriveReciprocalCell(cell), job.options.Limits(), data.list);
  return Simulate(cell, job.options, data);
}

/// The list after a run as "1 0 2 5.00, ", without its angles and intensities of 10.
std::string Listed(const Job& job) {
  const auto data = std::make_unique<SimulationData>();
  RunJob(job, *data);
  OutputText listing;
  WriteReflectionListing(data->list, listing);
  std::istringstream stream(listing.Text());
  std::string text;
  for (std::string h, k, l, angle, f2; stream >> h >> k >> l >> angle >> f2;)
    text.append(h + " " + k + " " + l).append(f2 == "10.00" ? "" : " " + f2).append(", ");
  return text;
}

/// Rows of an HKL file for "1 0 2, ", of intensity 10.
std::string Hkl(const std::string& indices) {
  std::istringstream stream(Replaced(indices, ",", ""));
  std::string text;
  for (int h = 0, k = 0, l = 0; stream >> h >> k >> l;)
    text.append(Record().I(h, 4).I(k, 4).I(l, 4).Text()).append("   10.00    1.00\n");
  return text;
}

const std::string kOctant = "7 9 11 90 90 90", kHalf = "7 9 11 90 101 90", kBeta120 = "7 8 9 90 120 90";
constexpr PatternOptions kAsRead{.HemisphereExpansion = false};

TEST(Simulate, TakesRowsUpToTheEndOfTheList) {
  const std::string row = "   1   0   2    5.00    1.00\n", narrow = "     1234.56     1240.11      3.02 o\n";
  using Row = std::pair<Job, const char*>;
  for (const auto& [job, listed] :
       {// equal to its sigma is not below it; the zeros end the list
        Row{{kOctant,
             "   1   0   0    5.00    5.00\n# a comment\n   1   0   1    4.90    5.00 batch 3\n"
             "  -1   2   3  -20.00    1.00\n   1   1   1     123       1\n   2   0   0\n   0   0   0\n" +
                 row,
             kAsRead},
            "1 0 0 5.00, 1 0 1 0.00, -1 2 3 0.00, 1 1 1 123.00, 2 0 0 0.00, "},
        Row{{kOctant, row + "   1   x   0    5.00    1.00\n" + row, kAsRead}, "1 0 2 5.00, "},
        Row{{kOctant, row + "\n" + row, kAsRead}, "1 0 2 5.00, "},
        // a text in column 1, in 81 or after a plus is not counted; eight words count seven times, and end the list
        Row{{kOctant,
             "# head\ndata_x\nloop_\n _refln_index_h\n\n   1   0   2" + narrow + "-100   0   2" + narrow +
                 "   1   0  +4" + narrow + "   1   0   3       1234.56        440.11         3.02 <\n   2   0   2" +
                 Replaced(narrow, "\n", std::string(32, ' ') + "x\n") + "a b c d e f g h\n   3   0   2" + narrow,
             kAsRead, true},
            "1 0 2 1240.11, 1 0 3 440.11, 2 0 2 1240.11, "}})
    EXPECT_EQ(Listed(job), listed) << job.rows;
}

TEST(Simulate, ExpandsByCellClassAndSigns) {
  using Row = std::array<std::string, 3>;
  for (const auto& [cell, indices, listed] :
       {// first h, zero indices twice, then k where it is not zero
        Row{kOctant, "1 2 3, 0 1 1, 1 0 1",
            "1 2 3, 0 1 1, 1 0 1, -1 2 3, 0 1 1, -1 0 1, 1 -2 3, 0 -1 1, -1 -2 3, 0 -1 1, "},
        // signs add up to 5; to 4, one pass; beyond reach, but its signs count; h without a count copies nothing
        Row{kOctant, "1 1 1, -1 -1 1", "1 1 1, -1 -1 1, "},
        Row{kOctant, "1 1 1, -1 1 1", "1 1 1, -1 1 1, 1 -1 1, -1 -1 1, "}, Row{kOctant, "1 1 1, -9 -9 99", "1 1 1, "},
        Row{kOctant, "0 1 2", "0 1 2, 0 -1 2, "}, Row{kHalf, "1 1 1, 1 0 -1", "1 1 1, 1 0 -1, 1 -1 1, 1 0 -1, "},
        Row{kHalf, "1 1 1, 1 -1 1", "1 1 1, 1 -1 1, "}, Row{kHalf, "1 0 1", "1 0 1, "},
        Row{"7 7.3 9 90 90 90", "1 1 1", "1 1 1, -1 1 1, 1 -1 1, -1 -1 1, "},
        Row{"7 7 7 90 90 90", "1 1 1", "1 1 1, -1 1 1, 1 -1 1, -1 -1 1, "},
        Row{"7 7.3 9 90 100 90", "1 1 1", "1 1 1, "}, Row{"7 8 9 80 85 95", "1 1 1", "1 1 1, "},
        Row{kBeta120, "1 1 -1", "1 1 -1, -1 1 -1, 1 -1 -1, -1 -1 -1, "}})
    EXPECT_EQ(Listed({cell, Hkl(indices), {}}), listed) << cell << ": " << indices;
  // Copies beyond the limit of the angle are taken back; those beyond reach count as at 143.6 degrees.
  EXPECT_EQ(Listed({kBeta120, Hkl("1 1 -1"), {.TwoThetaMax = 23.0F}}), "1 1 -1, 1 -1 -1, ");
  EXPECT_EQ(Listed({kBeta120, Hkl("1 1 -10"), {.TwoThetaMax = 143.5F}}), "1 1 -10, 1 -1 -10, ");
}

TEST(Simulate, TellsWhatItNoticed) {
  using Row = std::tuple<PatternOptions, const char*, SimulationOutcome, std::size_t>;
  const auto data = std::make_unique<SimulationData>();
  for (const auto& [options, rows, outcome, points] :
       {Row{{}, "   1   0   0  100.00    1.00\n", SimulationOutcome::kFinished, 179},
        Row{{.Step = 0.0005F}, "   1   0   0  100.00    1.00\n", SimulationOutcome::kTooManyPoints, 0},
        Row{{.TwoThetaMin = 40.0F}, "   1   0   0  100.00    1.00\n", SimulationOutcome::kNoPoints, 0},
        Row{{}, "   1   0   0 1.5E+09    1.00\n", SimulationOutcome::kWideBinSum, 0},
        Row{{}, "   9   9   9  100.00    1.00\n", SimulationOutcome::kNoReflections, 0}}) {
    const SimulationResult result = RunJob({kOctant, rows, options}, *data);
    EXPECT_EQ(result.outcome, outcome) << rows;
    EXPECT_EQ(data->pattern.PointCount(), points) << rows;
    EXPECT_EQ(result.wide_bin_sum.has_value(), outcome == SimulationOutcome::kWideBinSum);
  }
}

TEST(Simulate, AFullListTakesNoCopies) {
  const auto data = std::make_unique<SimulationData>();
  std::string rows;
  for (int i = 0; i < 10'001; ++i) rows += "   1   1   1   10.00    1.00\n";
  const SimulationResult result = RunJob({"7 7 7 90 90 90", rows, {}}, *data);
  EXPECT_EQ(std::pair(result.limit_met, result.ExpandedCount), std::pair(true, 20'002)) << "the first pass found room";
}

/// All that a run writes.
std::string Written(const Job& job, SimulationData& data) {
  const SimulationResult result = RunJob(job, data);
  Pattern& pattern = data.pattern;
  pattern.title = "A (Talven)";
  OutputText text;
  WriteReflectionListing(data.list, text);
  WriteIngTitle(pattern, text);
  WriteSimulatedIngHead(pattern, text);
  WriteCpiHead({.job_name = "A", .end_value = static_cast<double>(result.extent.TopAngle), .date = {}, .time = {}},
               pattern, text);
  SimulatedIngRows rows(pattern);
  for (std::size_t i = 0; i < pattern.PointCount(); ++i) {
    rows.WriteNext(text);
    WriteCpiRow(pattern, i, text);
    WriteXyRow(pattern, i, text);
  }
  WritePatRows(pattern, text);
  return text.Text();
}

TEST(Simulate, TwoJobsInTwoThreadsDoNotMeet) {
  std::string rows;
  for (int i = 0; i < 8000; ++i)
    rows.append(Record().I(i / 400, 4).I(i / 20 % 20 - 9, 4).I(1 + i % 20, 4).F(i % 977, 8, 2).F(1.5, 8, 2).Text()) +=
        "\n";
  const Job jobs[] = {
      {"40 41 42 90 90 90", rows, {.Step = 0.01F, .TwoThetaMax = 50.0F}},
      {"30 44 29 90 100 90", rows, {.Wavelength = 0.71F, .Broadening = 3.0F, .PowderCorrection = false}}};
  std::string alone[2], at_once[2];
  const auto data = std::make_unique<SimulationData>();
  for (std::size_t i = 0; i < 2; ++i) alone[i] = Written(jobs[i], *data);
  std::thread threads[2];
  for (std::size_t i = 0; i < 2; ++i)
    threads[i] = std::thread([&, i] {
      const auto own = std::make_unique<SimulationData>();
      for (int round = 0; round < 5; ++round) at_once[i] = Written(jobs[i], *own);
    });
  for (std::thread& thread : threads) thread.join();
  for (std::size_t i = 0; i < 2; ++i) EXPECT_TRUE(at_once[i] == alone[i]) << i;
  EXPECT_GT(alone[0].size(), 100'000U);
}

}  // namespace
}  // namespace talven::test
