#include "simulation/SimulatePattern.h"

#include <string>

#include "crystal/CellGeometry.h"
#include "simulation/CellLine.h"
#include "simulation/DuplicateRemoval.h"
#include "simulation/HemisphereExpansion.h"
#include "simulation/PatternForm.h"
#include "simulation/ReflectionSource.h"
#include "simulation/SimulationOutputs.h"
#include "textio/InputFile.h"

namespace talven {
namespace {

constexpr double kAngleTolerance = 0.01;

/// The files of one run. The input files stand open as long as the outputs.
struct RunFiles {
  InputFile ins;
  InputFile source;
  OutputFile scratch;
  OutputFile reflection_list;
  PatternFiles pattern;
};

/// One run with all that it works on, so that each step takes one argument.
struct Simulation {
  Ui& ui;
  RunState& run;
  SimulationData& data;
  bool is_fcf;
  PatternProperties& properties;
  PatternSettings settings;
  std::int32_t cell_class = 1;
  RunFiles files;
};

/// How a step went on.
enum class Outcome { kGoOn, kRestart, kEnd };

bool OpenInputs(Simulation& s) {
  s.ui.ShowLine(s.run.JobFile(".INS"));
  if (!s.files.ins.Open(Folder(), s.run.JobFile(".INS"))) {
    s.run.StopFlag = 1;
    s.ui.ShowMessage("INS File NOT Found");
    return false;
  }
  if (!s.files.source.Open(Folder(), s.run.JobFile(s.is_fcf ? ".FCF" : ".HKL"))) {
    s.run.StopFlag = 1;
    s.ui.ShowMessage(s.is_fcf ? "FCF File NOT Found" : "HKL File NOT Found");
    return false;
  }
  return true;
}

void OpenOutputs(Simulation& s) {
  s.files.pattern.ing.Open(Folder(), s.run.JobFile(".ING"));
  s.files.scratch.Open(Folder(), s.run.JobFile(".TMP"));
  s.files.reflection_list.Open(Folder(), "SBRAG.LST");
  s.files.pattern.cpi.Open(Folder(), s.run.JobFile(".CPI"));
  s.files.pattern.pat.Open(Folder(), s.run.JobFile(".PAT"));
  s.files.pattern.xy.Open(Folder(), s.run.JobFile(".XY"));
}

void CloseFiles(Simulation& s) {
  s.files.reflection_list.Close();
  s.files.ins.Close();
  s.files.pattern.ing.Close();
  s.files.source.Close();
  s.files.scratch.CloseAndDelete();
  s.files.pattern.cpi.Close();
  s.files.pattern.pat.Close();
  s.files.pattern.xy.Close();
}

/// A run that can't come to a pattern.
Outcome EndWithMessage(Simulation& s, std::string_view message) {
  s.ui.ShowMessage(message);
  return Outcome::kEnd;
}

Outcome EndWithoutInput(Simulation& s, std::string_view message) {
  s.run.StopFlag = 1;
  return EndWithMessage(s, message);
}

void ShowCell(Ui& ui, const UnitCell& cell) {
  ui.ShowLine("  CELL");
  Record line;
  line.X(3).F(cell.Wavelength, 8, 6);
  for (const float value : {cell.a, cell.b, cell.c, cell.alpha, cell.beta, cell.gamma}) line.X(1).F(value, 8, 4);
  ui.ShowLine(line.Text());
  ui.ShowLine(Record().A("  Volume ").F(cell.Volume, 10, 3).Text());
}

void TakeCell(Simulation& s) {
  ShowCell(s.ui, s.data.cell);
  s.cell_class = ClassifyCell(s.data.cell, kAngleTolerance);
  s.properties[simulation_slot::kWavelength] = s.data.cell.Wavelength;
  s.settings = s.run.RunMode == 0 ? AskPatternSettings(s.ui, s.properties) : FixedPatternSettings(s.properties);
  DeriveReciprocalCell(s.data.cell);
}

/// Reads, expands and merges the reflections. False if there are none.
bool PrepareReflections(Simulation& s) {
  ReflectionList& list = s.data.list;
  const ReflectionLimits limits{s.properties[simulation_slot::kWavelength],
                                s.properties[simulation_slot::kTwoThetaMax]};
  list.ReflectionCount = 0;
  s.ui.ShowLine("   CALCULATING");
  ReadReflectionSource(s.ui, s.files.source, s.is_fcf, s.data.cell, limits, list, s.data.range);
  if (list.ReflectionCount == 0) return false;
  if (s.settings.HemisphereExpansion) ExpandHemisphere(s.ui, s.cell_class, s.data.cell, limits, list, s.data.range);
  s.ui.ShowLine(Record().A("   Total reflections").I(list.ReflectionCount, 12).Text());
  s.ui.ShowLine("   REMOVING DUPLICATES");
  RemoveDuplicates(list);
  s.ui.ShowLine("");
  return true;
}

void RewindForRestart(Simulation& s) {
  s.files.ins.Rewind();
  s.files.reflection_list.Rewind();
  s.files.source.Rewind();
  s.files.scratch.Rewind();
  s.ui.toolkit.WGrAreaClear();
  s.ui.ShowMessage("Reduce 2THmax or increase step size");
}

/// From the CELL line to a sized grid.
Outcome Prepare(Simulation& s) {
  if (!ReadCellLine(s.files.ins, s.data.cell)) return EndWithoutInput(s, "NO CELL Line in INS File");
  TakeCell(s);
  if (!PrepareReflections(s))
    return EndWithoutInput(s, s.is_fcf ? "NO Reflections in FCF File" : "NO Reflections in HKL File");
  const float highest = WriteReflectionList(s.data.list, s.files.reflection_list);
  SizeGrid(highest, s.properties[simulation_slot::kStep], s.settings.TwoThetaMin, s.data.grid);
  if (s.data.grid.PointCount > kLargestPointCount) {
    RewindForRestart(s);
    return Outcome::kRestart;
  }
  if (s.data.grid.PointCount < 1) return EndWithMessage(s, "NO Points above 2Theta Min");
  s.files.reflection_list.Close();
  return Outcome::kGoOn;
}

void ShowSummary(Simulation& s) {
  const auto show_count = [&s](std::int32_t count) { s.ui.ShowLine(Record().X(6).I(count, 5).Text()); };
  s.ui.ShowLine(Record().X(5).A(s.run.JobName.View()).Text());
  s.ui.ShowLine(Record().X(1).F(s.properties[simulation_slot::kWavelength], 10, 6).Text());
  show_count(s.data.list.ReflectionCount + 1);
  show_count(s.data.grid.TopAngle);
  s.ui.ShowLine(Record().X(1).F(s.properties[simulation_slot::kStep], 10, 3).Text());
  show_count(1);
  show_count(s.data.grid.PointCount);
}

void Synthesise(Simulation& s) {
  const ProfileParameters parameters{
      .Step = s.properties[simulation_slot::kStep],
      .TwoThetaMin = s.settings.TwoThetaMin,
      .Broadening = s.properties[simulation_slot::kBroadening],
      .SymmetricalPeaks = s.settings.SymmetricalPeaks,
      .PowderCorrection = s.properties[simulation_slot::kPowderCorrection] > 0.5F,
  };
  BinReflections(s.data.list, parameters, s.files.scratch, s.data.grid, s.data.synthesis);
  BroadenPeaks(parameters, s.data.grid, s.data.synthesis);
  ApplyPowderCorrection(parameters, s.data.grid);
  FinishIntensities(s.data.grid, s.data.synthesis);
}

void WritePattern(Simulation& s) {
  const PatternHead head{
      .TrimmedJobName = s.run.TrimmedJobName(),
      .Wavelength = s.properties[simulation_slot::kWavelength],
      .Step = s.properties[simulation_slot::kStep],
      .date = s.ui.toolkit.IOsDate(),
      .time = s.ui.toolkit.IOsTime(),
  };
  WriteHeads(head, s.data.grid, s.ui.line, s.files.pattern);
  Synthesise(s);
  WriteRows(head, s.data.list, s.data.grid, s.files.pattern);
}

void ShowEnd(Simulation& s) {
  s.ui.ShowLine("");
  const std::string text = s.run.JobFile(".ING (+CPI, XY, PAT) written");
  s.ui.ShowLine(text);
  if (s.run.AutoState == 0) s.ui.ShowMessage(text);
  s.ui.line = "";
}

}  // namespace

void SimulatePattern(Ui& ui, RunState& run, SimulationData& data, std::int32_t FcfSource,
                     PatternProperties& properties) {
  ui.toolkit.WGrAreaClear();
  Simulation s{ui, run, data, FcfSource == 1, properties, {}, 1, {}};
  data.range = IndexRange();
  if (!OpenInputs(s)) return;
  OpenOutputs(s);
  ui.ShowLine("   Reading", 0);
  Outcome outcome = Outcome::kRestart;
  while (outcome == Outcome::kRestart) outcome = Prepare(s);
  if (outcome == Outcome::kGoOn) {
    ShowSummary(s);
    WritePattern(s);
  }
  CloseFiles(s);
  if (outcome == Outcome::kGoOn) ShowEnd(s);
}

}  // namespace talven
