// The steps of a simulation on their largest input: 30,000 rows and 10,000 points.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <sstream>

#include "crystal/CellGeometry.h"
#include "simulation/DuplicateRemoval.h"
#include "simulation/ProfileSynthesis.h"
#include "simulation/ReflectionSource.h"
#include "simulation/SimulationOutputs.h"
#include "textio/OutputFile.h"
#include "ui/console/ConsoleToolkit.h"

namespace talven {
namespace {

constexpr std::int32_t kRows = kReflectionLimit - 10;

UnitCell LargeCell() {
  UnitCell cell;
  cell.a = cell.b = cell.c = 45.0F;
  cell.Volume = 45.0F * 45.0F * 45.0F;
  cell.alpha = cell.beta = cell.gamma = 90.0F;
  DeriveReciprocalCell(cell);
  return cell;
}

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
  std::istringstream input;
  std::ostringstream output;
  std::ostringstream messages;
  ConsoleToolkit toolkit{{"bench"}, input, output, messages, false};
  Ui ui{toolkit};
  std::string name = (std::filesystem::temp_directory_path() / "talven-bench.hkl").string();
  UnitCell cell = LargeCell();
  std::unique_ptr<ReflectionList> list = std::make_unique<ReflectionList>();
  std::unique_ptr<PatternGrid> grid = std::make_unique<PatternGrid>();
  std::unique_ptr<SynthesisData> work = std::make_unique<SynthesisData>();
  OutputFile scratch;
  ProfileParameters parameters{.Step = 0.005F, .TwoThetaMin = 4.0F, .SymmetricalPeaks = true, .PowderCorrection = true};

  Bench() {
    OutputFile file;
    file.Open(Folder(), name);
    file.WriteLine(Rows());
    file.Close();
    grid->PointCount = kLargestPointCount;
    Read();
  }
  ~Bench() { std::filesystem::remove(name); }

  void Read() {
    InputFile source;
    IndexRange range;
    if (source.Open(Folder(), name)) ReadReflectionSource(ui, source, false, cell, {1.54F, 0.0F}, *list, range);
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
  for (std::int32_t i = 1; i <= kRows; ++i) bench.list->H[i] = i / static_cast<std::int32_t>(state.range(0));
  const auto unmerged = std::make_unique<ReflectionList>(*bench.list);
  for (auto _ : state) {
    *bench.list = *unmerged;
    RemoveDuplicates(*bench.list);
  }
  state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(MergeDuplicates)->Arg(1)->Arg(2)->Arg(kRows);

void Synthesise(benchmark::State& state) {
  Bench bench;
  bench.parameters.Broadening = static_cast<float>(state.range(0));
  for (auto _ : state) {
    BinReflections(*bench.list, bench.parameters, bench.scratch, *bench.grid, *bench.work);
    BroadenPeaks(bench.parameters, *bench.grid, *bench.work);
    ApplyPowderCorrection(bench.parameters, *bench.grid);
    FinishIntensities(*bench.grid, *bench.work);
  }
}
BENCHMARK(Synthesise)->Arg(1)->Arg(10);

void WriteOutputs(benchmark::State& state) {
  Bench bench;
  BinReflections(*bench.list, bench.parameters, bench.scratch, *bench.grid, *bench.work);
  PatternFiles files;
  OutputFile rows;
  for (OutputFile* const file : {&files.ing, &files.cpi, &files.xy, &files.pat, &rows})
    file->Open(Folder(), "/dev/null");
  const PatternHead head{.TrimmedJobName = "bench", .Wavelength = 1.54F, .Step = 0.005F, .date = {}, .time = {}};
  for (auto _ : state) {
    WriteReflectionList(*bench.list, rows);
    WriteHeads(head, *bench.grid, bench.ui.line, files);
    WriteRows(head, *bench.list, *bench.grid, files);
  }
}
BENCHMARK(WriteOutputs);

}  // namespace
}  // namespace talven
