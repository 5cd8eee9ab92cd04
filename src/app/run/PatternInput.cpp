#include "app/run/PatternInput.h"

#include <cmath>

#include "app/run/FormOption.h"
#include "app/run/OptionText.h"
#include "app/run/Table.h"
#include "textio/FileNames.h"
#include "textio/InputFile.h"

namespace talven {
namespace {

constexpr std::size_t kMostScans = 100'000;

}  // namespace

void AddPatternInputOptions(CLI::App& app, const std::string& wavelength_name, PatternInputOptions& options) {
  AddOption(
      app, wavelength_name, "W",
      [&options, wavelength_name](const std::string& text) {
        options.wavelength = WavelengthValue(wavelength_name, text);
      },
      "Cu, Mo or Angstrom, in place of the wavelength in the file");
  AddOption(
      app, "--scan", "N",
      [&options](const std::string& text) { options.scan = static_cast<int>(CountOption("--scan", text, kMostScans)); },
      "reads the Nth scan of a file that holds several, the first by default");
}

PatternFile ReadInputPattern(const InputPath& input, const PatternInputOptions& options) {
  PatternFile file = ReadPatternFile(ToPath(input.Text()), {.scan = options.scan});
  if (!options.wavelength) return file;
  // The option is held in the form's precision, and stands for the decimal number that was typed.
  const double wavelength = Shortest(*options.wavelength);
  const std::optional<double> told = file.pattern.wavelength;
  if (told && std::abs(*told - wavelength) > 1e-4)
    file.notices.push_back("wavelength " + Cell::Real(wavelength).TabText() + " taken in place of the file's " +
                           Cell::Real(*told).TabText());
  file.pattern.wavelength = wavelength;
  file.pattern.wavelength_alpha2.reset();
  return file;
}

std::string IngTextOf(const InputPath& input, const PatternFile& file, const PatternInputOptions& options) {
  if (file.format.starts_with("ING") && !options.wavelength) {
    InputFile bytes;
    bytes.OpenRequired(input.Home(), input.Name());
    return std::string(bytes.Content());
  }
  OutputText text;
  WritePatternAs(PatternFormat::kIng, file.pattern, {.job = input.HeadName(), .date = {}}, text);
  return text.Text();
}

}  // namespace talven
