#include "app/run/SimulateOptions.h"

#include <algorithm>
#include <iterator>

#include "app/run/FormOption.h"
#include "app/run/InputPath.h"
#include "app/run/OptionText.h"
#include "textio/LetterCase.h"
#include "ui/forms/FormFields.h"

namespace talven {
namespace {

namespace field = pattern_field;

constexpr double kNarrowest = 0.001;
constexpr double kWidest = 10.0;

void TakeWavelength(const std::string& text, SimulateOptions& options) {
  options.takes_cell_wavelength = ToLower(text) == "cell";
  if (!options.takes_cell_wavelength) options.pattern.Wavelength = WavelengthValue("--wavelength", text, "cell ");
}

void TakeData(const std::string& text, SimulateOptions& options) {
  const std::string word = ToLower(text);
  if (word == "hkl") {
    options.data = DataSource::kHkl;
  } else if (word == "fcf") {
    options.data = DataSource::kFcf;
  } else if (word == "model") {
    options.data = DataSource::kModel;
  } else {
    RefuseOption("--data", "hkl, fcf or model", text);
  }
}

void TakeExpansion(const std::string& text, SimulateOptions& options) {
  if (ToLower(text) != "symmetry" && ToLower(text) != "signs") RefuseOption("--expand", "signs or symmetry", text);
  options.expands_by_symmetry = ToLower(text) == "symmetry";
}

void TakeFormats(const std::string& text, SimulateOptions& options) {
  const std::vector<std::string> wanted = ListOption("--formats", text);
  for (const std::string& name : wanted)
    if (std::ranges::find(kSimulatedFormats, name) == std::end(kSimulatedFormats))
      RefuseOption("--formats", "some of ing, cpi, xy, pat and sbrag", name);
  options.formats.clear();
  for (const char* name : kSimulatedFormats)
    if (std::ranges::find(wanted, name) != wanted.end()) options.formats.emplace_back(name);
}

/// An option for a numeric field of the form.
void AddField(CLI::App& app, const char* name, int id, float& value, const char* help) {
  AddOption(
      app, name, "X", [name, id, &value](const std::string& text) { value = PatternFieldValue(name, id, text); }, help);
}

void AddSwitchOff(CLI::App& app, const char* name, bool& is_on, const char* help) {
  app.add_flag_callback(
         name, [&is_on] { is_on = false; }, help)
      ->multi_option_policy(CLI::MultiOptionPolicy::Throw);
}

void AddFormOptions(CLI::App& app, PatternOptions& pattern) {
  AddField(app, "--step", field::kStep, pattern.Step, "step of the pattern, degrees (0.05)");
  AddField(app, "--two-theta-min", field::kTwoThetaMin, pattern.TwoThetaMin, "first angle, degrees (4)");
  AddField(app, "--two-theta-max", field::kTwoThetaMax, pattern.TwoThetaMax,
           "highest angle of a reflection, degrees (none; 40 for a model)");
  AddField(app, "--broadening", field::kBroadening, pattern.Broadening, "length of the tails of peaks, 1 to 10 (1)");
  AddSwitchOff(app, "--no-powder-correction", pattern.PowderCorrection, "leaves the powder correction out");
  AddSwitchOff(app, "--no-symmetrical-peaks", pattern.SymmetricalPeaks, "shorter tails to high angles");
  AddSwitchOff(app, "--no-expansion", pattern.HemisphereExpansion, "takes the list as it is");
}

}  // namespace

void AddSimulateOptions(CLI::App& app, SimulateOptions& options) {
  options.formats.assign(std::begin(kSimulatedFormats), std::end(kSimulatedFormats));
  AddOption(
      app, "--wavelength", "W", [&options](const std::string& text) { TakeWavelength(text, options); },
      "Cu (1.54), Mo (.71069), Angstrom, or cell for that of the CELL line (Cu)");
  AddOption(
      app, "--data", "SOURCE", [&options](const std::string& text) { TakeData(text, options); },
      "hkl or fcf: measured, model: calculated (the first of these that is there)");
  AddFormOptions(app, options.pattern);
  AddOption(
      app, "--expand", "HOW", [&options](const std::string& text) { TakeExpansion(text, options); },
      "signs: copies with other signs; symmetry: all equivalents by the Laue group (signs)");
  AddSwitch(app, "--standard-heads", options.has_standard_heads,
            "CPI and PAT with their real start angle, XY without its REM line");
  AddSwitch(app, "--textbook", options.is_textbook,
            "Lorentz-polarisation factor and pseudo-Voigt profiles of the textbooks, no floor");
  AddOption(
      app, "--fwhm", "DEGREES",
      [&options](const std::string& text) { options.fwhm = RealOption("--fwhm", text, kNarrowest, kWidest); },
      "full width at half maximum of a textbook profile (0.1)")
      ->needs("--textbook");
  AddOption(
      app, "--formats", "LIST", [&options](const std::string& text) { TakeFormats(text, options); },
      "only these files, of ing,cpi,xy,pat,sbrag");
}

void CheckSimulateOptions(const CLI::App& app, SimulateOptions& options) {
  if (options.expands_by_symmetry && !options.pattern.HemisphereExpansion)
    throw CommandLineError("--expand symmetry and --no-expansion exclude each other");
  for (const char* name : {"--broadening", "--no-powder-correction", "--no-symmetrical-peaks"})
    if (options.is_textbook && app.count(name) > 0)
      throw CommandLineError(std::string("--textbook and ") + name + " exclude each other");
}

}  // namespace talven
