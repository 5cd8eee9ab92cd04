#include "simulation/PatternForm.h"

#include "simulation/SimulatePattern.h"
#include "ui/forms/FormCatalogue.h"

namespace talven {
namespace {

namespace slot = simulation_slot;

constexpr int kRadiationField = 1006;
constexpr int kSymmetricalField = 1012;
constexpr int kWavelengthField = 1013;
constexpr int kStepField = 1014;
constexpr int kTwoThetaMaxBox = 1015;
constexpr int kTwoThetaMaxField = 1016;
constexpr int kBroadeningField = 1017;
constexpr int kPowderCorrectionField = 1018;
constexpr int kHemisphereField = 1024;
constexpr int kTwoThetaMinField = 1030;

constexpr std::int32_t kCopper = 1;
constexpr std::int32_t kMolybdenum = 2;
constexpr float kCopperWavelength = 1.54F;
constexpr float kMolybdenumWavelength = 0.71069F;

void ChooseRadiation(std::int32_t radiation, PatternProperties& properties) {
  if (radiation == kCopper) properties[slot::kWavelength] = kCopperWavelength;
  if (radiation == kMolybdenum) properties[slot::kWavelength] = kMolybdenumWavelength;
}

void FillForm(Toolkit& toolkit, float wavelength) {
  for (const int field : {kTwoThetaMaxField, kBroadeningField, kTwoThetaMaxBox, kPowderCorrectionField})
    toolkit.WDialogFieldState(field, 1);
  toolkit.WDialogPutReal(kWavelengthField, wavelength, RealFormat{8, 5});
}

PatternSettings ReadForm(const Toolkit& toolkit, PatternProperties& properties) {
  PatternSettings settings;
  properties[slot::kWavelength] = toolkit.WDialogGetReal(kWavelengthField);
  properties[slot::kStep] = toolkit.WDialogGetReal(kStepField);
  settings.TwoThetaMin = toolkit.WDialogGetReal(kTwoThetaMinField);
  properties[slot::kTwoThetaMax] =
      toolkit.WDialogGetCheckBox(kTwoThetaMaxBox) == 1 ? toolkit.WDialogGetReal(kTwoThetaMaxField) : 0.0F;
  properties[slot::kBroadening] = toolkit.WDialogGetReal(kBroadeningField);
  properties[slot::kPowderCorrection] = toolkit.WDialogGetCheckBox(kPowderCorrectionField) == 1 ? 1.0F : 0.0F;
  settings.SymmetricalPeaks = toolkit.WDialogGetCheckBox(kSymmetricalField) == 1;
  settings.HemisphereExpansion = toolkit.WDialogGetCheckBox(kHemisphereField) == 1;
  ChooseRadiation(toolkit.WDialogGetRadioButton(kRadiationField), properties);
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
  ChooseRadiation(kCopper, properties);
  properties[slot::kStep] = 0.05F;
  properties[slot::kTwoThetaMax] = 40.0F;
  properties[slot::kBroadening] = 1.0F;
  properties[slot::kPowderCorrection] = 1.0F;
  return {.TwoThetaMin = 4.0F, .SymmetricalPeaks = true, .HemisphereExpansion = true};
}

}  // namespace talven
