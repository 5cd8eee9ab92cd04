#include "handlers/ReformatIng.h"

#include "handlers/JobInput.h"
#include "textio/OutputFile.h"
#include "ui/forms/FormCatalogue.h"
#include "ui/forms/FormFields.h"

namespace talven {
namespace {

namespace field = pattern_field;

constexpr float kUnattendedLastAngle = 40.0F;

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

/// Shows the form and takes wavelength and step from it.
ReformatOptions AskOptions(Ui& ui, const IngHeader& header) {
  Toolkit& toolkit = ui.toolkit;
  toolkit.WDialogLoad(kPatternForm);
  toolkit.WDialogSelect(kPatternForm);
  toolkit.WDialogPutReal(field::kWavelength, header.Wavelength, RealFormat{8, 5});
  toolkit.WDialogPutReal(field::kStep, header.Step, RealFormat{4, 2});
  for (const int id : field::kSimulationOnly) toolkit.WDialogFieldState(id, 0);
  toolkit.WDialogShow(-1, -1, 0, kModal);
  const ReformatOptions options{
      .OldWavelength = header.Wavelength,
      .NewWavelength = field::ChosenWavelength(toolkit.WDialogGetRadioButton(field::kRadiation),
                                               toolkit.WDialogGetReal(field::kWavelength)),
      .NewStep = toolkit.WDialogGetReal(field::kStep),
  };
  toolkit.WDialogUnload(kPatternForm);
  toolkit.WGrAreaClear();
  return options;
}

ReformatOptions ChooseOptions(Ui& ui, const RunState& run, IngHeader& header) {
  if (run.RunMode == 0) return AskOptions(ui, header);
  header.LastAngle = kUnattendedLastAngle;
  return {header.Wavelength, field::ChosenWavelength(field::kCopper, 0.0F), header.Step};
}

/// Everything after the head. A pattern that cannot be reformatted leaves the new file empty.
void ReformatRows(Ui& ui, const RunState& run, InputFile& ing, IngHeader header, ReformatWork& work,
                  OutputFile& new_ing) {
  if (work.FineStep == 0.0F) return ui.ShowMessage("Step Size is NOT a Multiple of 0.005");
  const ReformatOptions options = ChooseOptions(ui, run, header);
  const ReformatOutcome outcome = FillWorkingGrid(ing, options, header, work);
  if (outcome == ReformatOutcome::kTooManyPoints) return ui.ShowMessage("100,000 point limit");
  if (outcome == ReformatOutcome::kNothingLeft) return;
  ui.ShowLine("   Calculating");
  WriteIng(new_ing, run.JobName.View(), BinWorkingGrid(options, header, work));
  ui.ShowLine("    NEW.ING written");
}

}  // namespace

void ReformatIng(Ui& ui, RunState& run, ReformatWork& work) {
  InputFile ing;
  if (!OpenJobInput(ui, run, ".ING", ing)) return;
  OutputFile new_ing;
  new_ing.Open(run.folder, "NEW.ING");
  const IngHeader header = ReadIngHeader(ing);
  ShowHeader(ui, header);
  ChooseFineStep(header.Step, work.FineStep);
  ReformatRows(ui, run, ing, header, work, new_ing);
  new_ing.Close();
}

}  // namespace talven
