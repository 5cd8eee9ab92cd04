#include "patterns/CifToIng.h"

#include <algorithm>
#include <span>
#include <string>

#include "patterns/JobInput.h"
#include "patterns/ing/IngLayout.h"
#include "patterns/ing/IngRows.h"
#include "textio/FixedText.h"
#include "textio/FreeForm.h"
#include "textio/Numbers.h"
#include "textio/OutputFile.h"

namespace talven {
namespace {

struct DataName {
  std::string_view name;
  float IngHeader::*value;
};

constexpr std::array<DataName, 5> kDataNames = {{
    {"_diffraction_radiation_wavelength", &IngHeader::Wavelength},
    {"_pd_meas_2theta_range_min", &IngHeader::FirstAngle},
    {"_pd_meas_2theta_range_max", &IngHeader::LastAngle},
    {"_pd_meas_2theta_range_inc", &IngHeader::Step},
    {"_pd_meas_step_count_time", &IngHeader::StepTime},
}};

constexpr std::size_t kTitleCharacters = 12;

void WriteTitle(Ui& ui, const RunState& run, OutputFile& ing) {
  ui.line = std::string(4, ' ').append(run.JobName.First(kTitleCharacters));
  ing.WriteLine(ui.line.TrimmedLine());
}

void TakeDataNames(const InputFile& cif, Text80 line, CifToIngData& data) {
  for (std::size_t i = 0; i < kDataNames.size(); ++i) {
    const DataName& wanted = kDataNames[i];
    if (!line.StartsWith(wanted.name)) continue;
    line.BlankFirst(wanted.name.size());
    ParseReals(cif, line.View(), std::span(&(data.header.*wanted.value), 1), "behind " + std::string(wanted.name));
    data.seen[i] = true;
  }
}

/// Reads lines until all five names have been seen. False if the file ends before.
bool FindDataNames(InputFile& cif, CifToIngData& data) {
  std::string_view line;
  while (cif.ReadLine(line)) {
    TakeDataNames(cif, line, data);
    if (std::ranges::all_of(data.seen, [](bool seen) { return seen; })) return true;
  }
  return false;
}

/// True if the next two lines are the head of the loop; the second is not read behind a wrong first one.
bool ReadLoopHead(InputFile& cif) {
  return cif.RequireLine("loop_").starts_with("loop_") &&
         cif.RequireLine("_pd_meas_counts_total").starts_with("    _pd_meas_counts_total");
}

/// The next count; false at the end of the file.
bool ReadCount(InputFile& cif, float& count) {
  std::string_view bad;
  const ReadStatus status = ReadReals(cif, std::span(&count, 1), &bad);
  if (status == ReadStatus::kMalformed) cif.Fail("a count", Quote(bad));
  return status == ReadStatus::kOk;
}

void CopyCounts(InputFile& cif, const IngHeader& header, OutputFile& ing) {
  float angle = Store(static_cast<double>(header.FirstAngle) - header.Step);
  float count = 0.0F;
  for (std::int32_t i = 0; i < header.PointCount && ReadCount(cif, count); ++i) {
    angle = Store(static_cast<double>(angle) + header.Step);
    WriteIngRowFromCif(ing, angle, count);
  }
}

}  // namespace

void CifToIng(Ui& ui, RunState& run, CifToIngData& data) {
  InputFile cif;
  if (!OpenJobInput(ui, run, ".CIF", cif)) return;
  ui.ShowLine(run.JobFile(".ING"));
  OutputFile ing;
  ing.Open(Folder(), run.JobFile(".ING"));
  WriteTitle(ui, run, ing);
  if (FindDataNames(cif, data)) {
    data.header.PointCount = CountCutSteps(data.header);
    WriteIngHeaderFromCif(ing, data.header);
    if (ReadLoopHead(cif)) CopyCounts(cif, data.header, ing);
  }
  ing.Close();
  ui.ShowLine("    NEW.ING written");  // On purpose: the name is fixed, whatever file was written.
}

}  // namespace talven
