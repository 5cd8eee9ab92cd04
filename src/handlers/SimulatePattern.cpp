#include "handlers/SimulatePattern.h"

#include <algorithm>
#include <string>

#include "crystal/CellGeometry.h"
#include "handlers/JobInput.h"
#include "handlers/PatternForm.h"
#include "patterns/CpiFile.h"
#include "patterns/PatFile.h"
#include "patterns/ReflectionListing.h"
#include "patterns/XyFile.h"
#include "patterns/ing/SimulatedIng.h"
#include "shelx/CellLine.h"
#include "textio/FatalIoError.h"
#include "textio/OutputFile.h"

namespace talven {
namespace {

/// After so many rows of a pattern it is told how far the run has come.
constexpr std::size_t kToldRows = 200;

/// The files of one run. The input files stand open as long as the outputs.
struct RunFiles {
  InputFile ins;
  InputFile source;
  OutputFile scratch;
  OutputFile reflection_list;
  OutputFile ing;
  OutputFile cpi;
  OutputFile xy;
  OutputFile pat;
};

/// One run with all that it works on, so that each step takes one argument.
struct Run {
  Ui& ui;
  RunState& state;
  SimulationData& data;
  const SimulationSource& source;
  PatternOptions options;
  SimulationResult result;
  RunFiles files;
};

/// What comes after a step.
enum class Outcome { kGoOn, kRestart, kEnd };

bool OpenInputs(Run& r) {
  r.ui.ShowLine(r.state.JobFile(".INS"));
  return OpenJobInput(r.ui, r.state, ".INS", r.files.ins) &&
         OpenJobInput(r.ui, r.state, r.source.extension, r.files.source);
}

void OpenOutputs(Run& r) {
  const Folder& folder = r.state.folder;
  r.files.ing.Open(folder, r.state.JobFile(".ING"));
  r.files.scratch.Open(folder, r.state.JobFile(".TMP"));
  r.files.reflection_list.Open(folder, "SBRAG.LST");
  r.files.cpi.Open(folder, r.state.JobFile(".CPI"));
  r.files.pat.Open(folder, r.state.JobFile(".PAT"));
  r.files.xy.Open(folder, r.state.JobFile(".XY"));
}

void CloseFiles(RunFiles& files) {
  files.reflection_list.Close();
  files.ins.Close();
  files.ing.Close();
  files.source.Close();
  files.scratch.CloseAndDelete();
  files.cpi.Close();
  files.pat.Close();
  files.xy.Close();
}

/// A run that can't come to a pattern.
Outcome EndWithMessage(Run& r, std::string_view message) {
  r.ui.ShowMessage(message);
  return Outcome::kEnd;
}

Outcome EndWithoutInput(Run& r, std::string_view message) {
  r.state.StopFlag = 1;
  return EndWithMessage(r, message);
}

void ShowCell(Ui& ui, const UnitCell& cell, float volume) {
  ui.ShowLine("  CELL");
  Record line;
  line.X(3).F(cell.Wavelength, 8, 6);
  for (const float value : {cell.a, cell.b, cell.c, cell.alpha, cell.beta, cell.gamma}) line.X(1).F(value, 8, 4);
  ui.ShowLine(line.Text());
  ui.ShowLine(Record().A("  Volume ").F(volume, 10, 3).Text());
}

/// Reads the reflections within the limits. False if there are none.
bool ReadReflections(Run& r, const ReciprocalCell& cell) {
  r.ui.ShowLine("   CALCULATING");
  const ReflectionReading reading = r.source.Read(r.files.source, cell, r.options.Limits(), r.data.list);
  if (reading.limit_met) r.ui.ShowMessage(kReflectionLimitMessage);
  r.ui.ShowLine(Record().A("   Reflections read ").I(reading.rows_kept, 12).Text());
  return reading.rows_kept > 0;
}

void ShowPreparation(Ui& ui, const SimulationResult& result) {
  if (result.limit_met) ui.ShowMessage(kReflectionLimitMessage);
  ui.ShowLine(Record().A("   Total reflections").I(result.ExpandedCount, 12).Text());
  ui.ShowLine("   REMOVING DUPLICATES");
  ui.ShowLine("");
}

Outcome RewindForRestart(Run& r) {
  r.files.ins.Rewind();
  r.files.reflection_list.Rewind();
  r.files.source.Rewind();
  r.files.scratch.Rewind();
  r.ui.toolkit.WGrAreaClear();
  r.ui.ShowMessage("Reduce 2THmax or increase step size");
  return Outcome::kRestart;
}

/// From the CELL line to the finished pattern in memory.
Outcome MakePattern(Run& r) {
  const auto cell = ReadCellLine(r.files.ins);
  if (!cell) return EndWithoutInput(r, "NO CELL Line in INS File");
  const ReciprocalCell reciprocal = DeriveReciprocalCell(*cell);
  ShowCell(r.ui, *cell, reciprocal.Volume);
  r.options = r.state.RunMode == 0 ? AskPatternOptions(r.ui.toolkit, cell->Wavelength) : FixedPatternOptions();
  if (!ReadReflections(r, reciprocal)) return EndWithoutInput(r, r.source.no_reflections);
  r.result = Simulate(*cell, r.options, r.data);
  ShowPreparation(r.ui, r.result);
  WriteReflectionListing(r.data.list, r.files.reflection_list);
  if (r.result.outcome == SimulationOutcome::kTooManyPoints) return RewindForRestart(r);
  if (r.result.outcome == SimulationOutcome::kNoPoints) return EndWithMessage(r, "NO Points above 2Theta Min");
  r.files.reflection_list.Close();
  return Outcome::kGoOn;
}

void ShowSummary(Run& r) {
  const auto show_count = [&r](std::int32_t count) { r.ui.ShowLine(Record().X(6).I(count, 5).Text()); };
  r.ui.ShowLine(Record().X(5).A(r.state.JobName.View()).Text());
  r.ui.ShowLine(Record().X(1).F(r.options.Wavelength, 10, 6).Text());
  show_count(r.data.list.ReflectionCount + 1);
  show_count(r.result.extent.TopAngle);
  r.ui.ShowLine(Record().X(1).F(r.options.Step, 10, 3).Text());
  show_count(1);
  show_count(r.result.extent.PointCount);
}

void WriteHeads(Run& r) {
  const CpiHead head{
      .job_name = r.state.TrimmedJobName(),
      .end_value = static_cast<double>(r.result.extent.TopAngle),
      .date = r.ui.toolkit.IOsDate(),
      .time = r.ui.toolkit.IOsTime(),
  };
  Pattern& pattern = r.data.pattern;
  pattern.title = std::string(head.job_name) + " (Talven)";
  WriteIngTitle(pattern, r.files.ing);
  WriteCpiHead(head, pattern, r.files.cpi);
  WritePatHead(pattern, head.end_value, r.files.pat);
  WriteXyHead(r.files.xy);
  // The wavelength is the last text that passes the shared line: a blank line of an INS written later gets its length.
  r.ui.line = Trim(Record().F(r.options.Wavelength, 9, 6).Text());
  r.ui.line.TrimLine();
}

/// Leaves the rows in the scratch file and ends the run: the sum of a point can't be read back from it.
[[noreturn]] void FailReadingBack(const WideBinSum& wide, OutputFile& scratch) {
  for (const WideBinSum::Row& row : wide.rows)
    scratch.WriteLine(Record().X(1).F(row.angle, 8, 2).X(3).F(row.sum, 10, 0));
  FailAtLine(scratch.Name(), static_cast<std::size_t>(wide.point), "a bin sum that fits ten columns", "**********");
}

void WriteRows(Toolkit& toolkit, const Pattern& pattern, RunFiles& files) {
  WriteSimulatedIngHead(pattern, files.ing);
  SimulatedIngRows ing_rows(pattern);
  const std::size_t count = pattern.PointCount();
  for (std::size_t first = 0; first < count; first += kToldRows) {
    toolkit.TellProgress(static_cast<std::int64_t>(first), static_cast<std::int64_t>(count));
    for (std::size_t i = first; i < std::min(first + kToldRows, count); ++i) {
      WriteCpiRow(pattern, i, files.cpi);
      WriteXyRow(pattern, i, files.xy);
      ing_rows.WriteNext(files.ing);
    }
  }
  WritePatRows(pattern, files.pat);
}

void ShowEnd(Run& r) {
  r.ui.ShowLine("");
  const std::string text = r.state.JobFile(".ING (+CPI, XY, PAT) written");
  r.ui.ShowLine(text);
  if (r.state.AutoState == 0) r.ui.ShowMessage(text);
  r.ui.line = "";
}

}  // namespace

void SimulatePattern(Ui& ui, RunState& run, SimulationData& data, const SimulationSource& source) {
  ui.toolkit.WGrAreaClear();
  Run r{ui, run, data, source, {}, {}, {}};
  data.list.Range = IndexRange();
  if (!OpenInputs(r)) return;
  if (source.Hint != nullptr) TellHint(ui, source.Hint(r.files.source.Name(), r.files.source.Content()));
  OpenOutputs(r);
  ui.ShowLine("   Reading", 0);
  Outcome outcome = Outcome::kRestart;
  while (outcome == Outcome::kRestart) outcome = MakePattern(r);
  if (outcome == Outcome::kGoOn) {
    ShowSummary(r);
    WriteHeads(r);
    if (r.result.wide_bin_sum) FailReadingBack(*r.result.wide_bin_sum, r.files.scratch);
    WriteRows(ui.toolkit, data.pattern, r.files);
  }
  CloseFiles(r.files);
  if (outcome == Outcome::kGoOn) ShowEnd(r);
}

}  // namespace talven
