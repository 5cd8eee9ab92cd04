// The steps of a simulation on their largest input: 30,000 rows and 10,000 points.

#include <benchmark/benchmark.h>

#include <memory>

#include "crystal/CellGeometry.h"
#include "patterns/CpiFile.h"
#include "patterns/PatFile.h"
#include "patterns/ReflectionListing.h"
#include "patterns/XyFile.h"
#include "patterns/ing/SimulatedIng.h"
#include "shelx/ReadReflections.h"
#include "simulation/PrepareReflections.h"
#include "simulation/Simulation.h"
#include "textio/OutputFile.h"

namespace talven {
namespace {

constexpr std::int32_t kRows = kReflectionLimit - 10;
constexpr UnitCell kCell{1.54F, 45.0F, 45.0F, 45.0F, 90.0F, 90.0F, 90.0F};

/// Rows of an HKL file with indices up to 24, in measured order.
std::string Rows() {
  Record row;
  std::string text;
  for (std::int32_t i = 0; i < kRows; ++i) {
    row.Clear();
    row.I(1 + i / 1300, 4).I(i / 50 % 26 - 12, 4).I(i % 50 - 25, 4).F(100.0 + i % 977, 8, 2).F(1.5, 8, 2);
    text.append(row.Text()).append("\n");
  }
  return text;
}

struct Bench {
  TextInput source{"bench.hkl", Rows()};
  std::unique_ptr<SimulationData> data = std::make_unique<SimulationData>();
  ReflectionList& list = data->list;
  SynthesisData& work = data->synthesis;
  PatternOptions options{.Step = 0.005F};

  Bench() {
    work.PointCount = kLargestPointCount;
    Read();
  }
  void Read() {
    source.Rewind();
    ReadHklReflections(source, DeriveReciprocalCell(kCell), options.Limits(), list);
  }
  void Synthesise() {
    BinReflections(list, options, work);
    BroadenPeaks(options, work);
    ApplyPowderCorrection(options, work);
    FinishIntensities(work);
    FillPoints(list, work, data->pattern);
  }
};

void ReadRows(benchmark::State& state) {
  Bench bench;
  for (auto _ : state) bench.Read();
  state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(ReadRows);

void MergeDuplicates(benchmark::State& state) {
  Bench bench;
  for (std::int32_t i = 1; i <= kRows; ++i) bench.list.H[i] = i / static_cast<std::int32_t>(state.range(0));
  const auto unmerged = std::make_unique<ReflectionList>(bench.list);
  for (auto _ : state) {
    bench.list = *unmerged;
    RemoveDuplicates(bench.list);
  }
  state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(MergeDuplicates)->Arg(1)->Arg(2)->Arg(kRows);

void Synthesise(benchmark::State& state) {
  Bench bench;
  bench.options.Broadening = static_cast<float>(state.range(0));
  for (auto _ : state) bench.Synthesise();
}
BENCHMARK(Synthesise)->Arg(1)->Arg(10);

void WriteOutputs(benchmark::State& state) {
  Bench bench;
  bench.Synthesise();
  Pattern& pattern = bench.data->pattern;
  pattern.title = "bench";
  pattern.step_time = 1000.0;
  OutputFile file;
  file.Open(Folder(), "/dev/null");
  for (auto _ : state) {
    WriteReflectionListing(bench.list, file);
    WriteSimulatedIngHead(pattern, file);
    SimulatedIngRows ing_rows(pattern);
    for (std::size_t i = 0; i < pattern.PointCount(); ++i) {
      WriteCpiRow(pattern, i, file);
      WriteXyRow(pattern, i, file);
      ing_rows.WriteNext(file);
    }
    WritePatRows(pattern, file);
  }
}
BENCHMARK(WriteOutputs);

}  // namespace
}  // namespace talven
