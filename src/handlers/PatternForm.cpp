#include "handlers/PatternForm.h"

#include "ui/forms/FormCatalogue.h"
#include "ui/forms/FormFields.h"

namespace talven {
namespace {

namespace field = pattern_field;

PatternOptions ReadForm(const Toolkit& toolkit) {
  const auto is_ticked = [&toolkit](int id) { return toolkit.WDialogGetCheckBox(id) == 1; };
  PatternOptions options;
  options.Wavelength = field::ChosenWavelength(toolkit.WDialogGetRadioButton(field::kRadiation),
                                               toolkit.WDialogGetReal(field::kWavelength));
  options.Step = toolkit.WDialogGetReal(field::kStep);
  options.TwoThetaMin = toolkit.WDialogGetReal(field::kTwoThetaMin);
  options.TwoThetaMax = is_ticked(field::kTwoThetaMaxBox) ? toolkit.WDialogGetReal(field::kTwoThetaMax) : 0.0F;
  options.Broadening = toolkit.WDialogGetReal(field::kBroadening);
  options.PowderCorrection = is_ticked(field::kPowderCorrection);
  options.SymmetricalPeaks = is_ticked(field::kSymmetrical);
  options.HemisphereExpansion = is_ticked(field::kHemisphere);
  return options;
}

}  // namespace

PatternOptions AskPatternOptions(Toolkit& toolkit, float wavelength) {
  toolkit.WDialogLoad(kPatternForm);
  toolkit.WDialogSelect(kPatternForm);
  for (const int id : field::kSimulationOnly) toolkit.WDialogFieldState(id, 1);
  toolkit.WDialogPutReal(field::kWavelength, wavelength, RealFormat{8, 5});
  toolkit.WDialogShow(-1, -1, 0, kModal);
  const PatternOptions options = ReadForm(toolkit);
  toolkit.WDialogUnload(kPatternForm);
  toolkit.WGrAreaClear();
  return options;
}

PatternOptions FixedPatternOptions() {
  return {.Wavelength = field::ChosenWavelength(field::kCopper, 0.0F), .TwoThetaMax = 40.0F};
}

}  // namespace talven
