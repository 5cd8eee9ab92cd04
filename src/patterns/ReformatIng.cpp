#include "patterns/ReformatIng.h"

#include <algorithm>
#include <optional>

#include "patterns/JobInput.h"
#include "patterns/WavelengthMove.h"
#include "patterns/ing/IngLayout.h"
#include "patterns/ing/IngRows.h"
#include "textio/Numbers.h"
#include "ui/forms/FormCatalogue.h"
#include "ui/forms/PatternFields.h"

namespace talven {
namespace {

namespace field = pattern_field;
namespace slot = reformat_slot;

constexpr float kUnattendedLastAngle = 40.0F;

constexpr std::string_view kLimitMessage = "100,000 point limit";

/// One run with all that it works on.
struct Reformat {
  Ui& ui;
  RunState& run;
  ReformatData& data;
  PatternProperties& properties;
  /// The angles are those of the new wavelength once it is known.
  IngHeader header;

  WavelengthMove Move() const { return {properties[slot::kOldWavelength], properties[slot::kNewWavelength]}; }
};

void ShowHeader(Ui& ui, const IngHeader& header) {
  const auto show = [&ui](std::string_view label, float value, int decimals) {
    ui.ShowLine(Record().A(label).F(value, 8, decimals).Text());
  };
  show("    Wavelength  = ", header.Wavelength, 4);
  show("    2 ThetaMin  = ", header.FirstAngle, 3);
  show("    2 ThetaMax  = ", header.LastAngle, 3);
  show("    Step Size   = ", header.Step, 3);
  show("    Step Time   = ", header.StepTime, 1);
}

/// Properties of a run that changes nothing.
void FillProperties(const Reformat& r) {
  r.properties[slot::kOldWavelength] = r.header.Wavelength;
  r.properties[slot::kNewWavelength] = r.header.Wavelength;
  r.properties[slot::kOldStep] = r.header.Step;
  r.properties[slot::kNewStep] = r.header.Step;
  r.properties[slot::kFineStep] = r.data.FineStep;
}

/// Shows the form, takes wavelength and step from it and gives the number of the radiation chosen.
std::int32_t AskProperties(Ui& ui, PatternProperties& properties) {
  Toolkit& toolkit = ui.toolkit;
  toolkit.WDialogLoad(kPatternForm);
  toolkit.WDialogSelect(kPatternForm);
  toolkit.WDialogPutReal(field::kWavelength, properties[slot::kOldWavelength], RealFormat{8, 5});
  toolkit.WDialogPutReal(field::kStep, properties[slot::kOldStep], RealFormat{4, 2});
  for (const int id : field::kSimulationOnly) toolkit.WDialogFieldState(id, 0);
  toolkit.WDialogShow(-1, -1, 0, kModal);
  properties[slot::kNewWavelength] = toolkit.WDialogGetReal(field::kWavelength);
  properties[slot::kNewStep] = toolkit.WDialogGetReal(field::kStep);
  const std::int32_t radiation = toolkit.WDialogGetRadioButton(field::kRadiation);
  toolkit.WDialogUnload(kPatternForm);
  toolkit.WGrAreaClear();
  return radiation;
}

void ChooseProperties(Reformat& r) {
  FillProperties(r);
  std::int32_t radiation = field::kCopper;
  if (r.run.RunMode == 0) {
    radiation = AskProperties(r.ui, r.properties);
  } else {
    r.header.LastAngle = kUnattendedLastAngle;
  }
  float& wavelength = r.properties[slot::kNewWavelength];
  wavelength = field::ChosenWavelength(radiation, wavelength);
}

/// Moves the range of the head. False if nothing of the pattern is left. On purpose the limit, a theta, is held against
/// the first 2 theta here.
bool MoveRange(Reformat& r) {
  const WavelengthMove move = r.Move();
  if (!move.MovesAngles()) return true;
  move.MoveRange(r.header);
  return !(move.LimitAngle() <= r.header.FirstAngle);
}

/// Reads the rows and moves them. A row beyond the limit ends them; one that cannot be read ends the reading, but what
/// stood in memory counts for the rest. False if there are more than 100000.
bool ReadRows(InputFile& ing, Reformat& r) {
  const WavelengthMove move = r.Move();
  const float limit = move.LimitAngle();
  std::int32_t& count = r.header.PointCount;
  for (std::int32_t i = 1; i <= std::min(count, kLargestReformatCount); ++i) {
    IngRow row{r.data.X[i], r.data.Y[i]};
    const bool is_read = ReadIngRow(ing, kReformatRows, row);
    r.data.X[i] = row.Angle;
    r.data.Y[i] = row.Intensity;
    if (!is_read) break;
    if (!move.MovesAngles()) continue;
    const double theta = 0.5 * row.Angle;
    if (limit <= theta) {
      count = i - 1;
      break;
    }
    r.data.X[i] = move.Move(theta);
  }
  return count <= kLargestReformatCount;
}

/// From the rows in X and Y to those of the new pattern. Gives their number, or nothing beyond 100000 cells or bins.
std::optional<std::int32_t> Resample(Reformat& r) {
  ReformatData& data = r.data;
  const IngHeader& header = r.header;
  const double range = static_cast<double>(header.LastAngle) - header.FirstAngle;
  const double fine_step = data.FineStep;
  const double new_step = r.properties[slot::kNewStep];
  if (!BuildFineGrid(header.FirstAngle, header.LastAngle, data.FineStep, data.FineGrid)) return std::nullopt;
  if (!PlaceRows(data.X, data.Y, header.PointCount, header.FirstAngle, data.FineStep, data.FineCounts))
    return std::nullopt;
  // On purpose: half a step in degrees is added, not half a cell.
  const std::int32_t cell_count = Truncate(range / fine_step + 0.5 * fine_step);
  const std::int32_t bin_count = Truncate(range / new_step + 0.5 * new_step);
  if (std::max(cell_count, bin_count) > kLargestReformatCount) return std::nullopt;
  FillGaps(data.FineCounts, cell_count);
  r.ui.ShowLine("   Calculating");
  BinCells(data.FineGrid, data.FineCounts, cell_count, header.FirstAngle, new_step, bin_count, data.X, data.Y);
  Rescale(data.Y.Range(1, bin_count));
  return bin_count;
}

void WritePattern(const Reformat& r, std::int32_t count, OutputFile& new_ing) {
  const IngHeader header{
      .Wavelength = r.properties[slot::kNewWavelength],
      .FirstAngle = r.data.X[1],
      .LastAngle = r.header.LastAngle,
      .Step = r.properties[slot::kNewStep],
      .StepTime = r.header.StepTime,
      .PointCount = count,
  };
  WriteIngHeader(new_ing, r.run.JobName.View(), header);
  for (std::int32_t i = 1; i <= count; ++i) WriteIngRow(new_ing, r.data.X[i], r.data.Y[i]);
}

/// Everything behind the head. A pattern that cannot be reformatted leaves the new file empty.
void ReformatRows(InputFile& ing, Reformat& r, OutputFile& new_ing) {
  if (r.data.FineStep == 0.0F) return r.ui.ShowMessage("Step Size is NOT a Multiple of 0.005");
  ChooseProperties(r);
  if (!MoveRange(r)) return;
  const auto count = ReadRows(ing, r) ? Resample(r) : std::nullopt;
  if (!count) return r.ui.ShowMessage(kLimitMessage);
  WritePattern(r, *count, new_ing);
  r.ui.ShowLine("    NEW.ING written");
}

}  // namespace

void ReformatIng(Ui& ui, RunState& run, ReformatData& data, PatternProperties& properties) {
  InputFile ing;
  if (!OpenJobInput(ui, run, ".ING", ing)) return;
  OutputFile new_ing;
  new_ing.Open(Folder(), "NEW.ING");
  Reformat r{ui, run, data, properties, ReadIngHeader(ing)};
  ShowHeader(ui, r.header);
  ChooseFineStep(r.header.Step, data.FineStep);
  ReformatRows(ing, r, new_ing);
  new_ing.Close();
}

}  // namespace talven
