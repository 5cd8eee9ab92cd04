#include "simulation/PatternForm.h"

#include "simulation/SimulatePattern.h"
#include "ui/forms/FormCatalogue.h"
#include "ui/forms/FormFields.h"

namespace talven {
namespace {

namespace field = pattern_field;
namespace slot = simulation_slot;

void FillForm(Toolkit& toolkit, float wavelength) {
  for (const int id : field::kSimulationOnly) toolkit.WDialogFieldState(id, 1);
  toolkit.WDialogPutReal(field::kWavelength, wavelength, RealFormat{8, 5});
}

PatternSettings ReadForm(const Toolkit& toolkit, PatternProperties& properties) {
  PatternSettings settings;
  properties[slot::kWavelength] = toolkit.WDialogGetReal(field::kWavelength);
  properties[slot::kStep] = toolkit.WDialogGetReal(field::kStep);
  settings.TwoThetaMin = toolkit.WDialogGetReal(field::kTwoThetaMin);
  properties[slot::kTwoThetaMax] =
      toolkit.WDialogGetCheckBox(field::kTwoThetaMaxBox) == 1 ? toolkit.WDialogGetReal(field::kTwoThetaMax) : 0.0F;
  properties[slot::kBroadening] = toolkit.WDialogGetReal(field::kBroadening);
  properties[slot::kPowderCorrection] = toolkit.WDialogGetCheckBox(field::kPowderCorrection) == 1 ? 1.0F : 0.0F;
  settings.SymmetricalPeaks = toolkit.WDialogGetCheckBox(field::kSymmetrical) == 1;
  settings.HemisphereExpansion = toolkit.WDialogGetCheckBox(field::kHemisphere) == 1;
  properties[slot::kWavelength] =
      field::ChosenWavelength(toolkit.WDialogGetRadioButton(field::kRadiation), properties[slot::kWavelength]);
  return settings;
}

}  // namespace

PatternSettings AskPatternSettings(Ui& ui, PatternProperties& properties) {
  Toolkit& toolkit = ui.toolkit;
  toolkit.WDialogLoad(kPatternForm);
  toolkit.WDialogSelect(kPatternForm);
  FillForm(toolkit, properties[slot::kWavelength]);
  toolkit.WDialogShow(-1, -1, 0, kModal);
  const PatternSettings settings = ReadForm(toolkit, properties);
  toolkit.WDialogUnload(kPatternForm);
  toolkit.WGrAreaClear();
  return settings;
}

PatternSettings FixedPatternSettings(PatternProperties& properties) {
  properties[slot::kWavelength] = field::ChosenWavelength(field::kCopper, 0.0F);
  properties[slot::kStep] = 0.05F;
  properties[slot::kTwoThetaMax] = 40.0F;
  properties[slot::kBroadening] = 1.0F;
  properties[slot::kPowderCorrection] = 1.0F;
  return {.TwoThetaMin = 4.0F, .SymmetricalPeaks = true, .HemisphereExpansion = true};
}

}  // namespace talven
