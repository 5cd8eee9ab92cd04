#include "patterns/IngToCif.h"

#include "patterns/JobInput.h"
#include "patterns/ing/IngHeader.h"
#include "patterns/ing/IngRows.h"
#include "textio/OutputFile.h"

namespace talven {
namespace {

/// On purpose: the blanks behind the names are uneven.
void WriteHead(OutputFile& cif, const IngHeader& header) {
  cif.WriteLine(Record().A("_diffraction_radiation_wavelength").F(header.Wavelength, 7, 4));
  cif.WriteLine(Record().A("_pd_meas_2theta_range_min").X(5).F(header.FirstAngle, 10, 4));
  cif.WriteLine(Record().A("_pd_meas_2theta_range_max").X(6).F(header.LastAngle, 10, 4));
  cif.WriteLine(Record().A("_pd_meas_2theta_range_inc").X(5).F(header.Step, 10, 4));
  cif.WriteLine(Record().A("_pd_meas_step_count_time").X(6).F(header.StepTime, 10, 4));
  cif.WriteLine("loop_");
  cif.WriteLine("    _pd_meas_counts_total");
}

void WriteLoop(InputFile& ing, const IngHeader& header, OutputFile& cif) {
  const std::int32_t count = CountIngRows(kCifRows, header);
  IngRow row;
  for (std::int32_t i = 0; i < count && ReadIngRow(ing, kCifRows, row); ++i)
    cif.WriteLine(Record().X(3).F(row.Intensity, 16, 0));
}

}  // namespace

void IngToCif(Ui& ui, RunState& run) {
  InputFile ing;
  if (!OpenJobInput(ui, run, ".ING", ing)) return;
  OutputFile cif;
  cif.Open(Folder(), "NEW.CIF");
  const IngHeader header = ReadIngHeader(ing);
  WriteHead(cif, header);
  WriteLoop(ing, header, cif);
  cif.Close();
  ui.ShowLine("");
  ui.ShowLine("    NEW.CIF written");
}

}  // namespace talven
