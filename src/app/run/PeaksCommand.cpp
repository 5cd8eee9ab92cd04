#include "app/run/PeaksCommand.h"

#include "app/run/FileCommand.h"
#include "app/run/OptionText.h"
#include "app/run/PatternInput.h"
#include "peaks/PeakListFile.h"
#include "peaks/PickPeaks.h"

namespace talven {
namespace {

/// The longest stem that the comparison takes.
constexpr std::size_t kLongestStem = 20;

class PeaksCommand : public FileCommand {
 public:
  CommandText Text() const override {
    return {"peaks", "a pattern to a list of its peaks",
            "Writes NAME.peaks.LST: the strongest 100 peaks by rising angle, height above the background, as the\n"
            "comparison reads them. Peaks are maxima of the negative second derivative that stand out of its error."};
  }
  BatchFeatures Features() const override { return {.files_help = "patterns of any kind"}; }
  void AddOptions(CLI::App& app) override {
    AddOption(
        app, "--fwhm", "W", [this](const std::string& text) { options_.fwhm = RealOption("--fwhm", text, 0.001, 5.0); },
        "width of a peak at half height, degrees; measured by default");
    AddOption(
        app, "--threshold", "T",
        [this](const std::string& text) { options_.threshold = RealOption("--threshold", text, 0.5, 1000.0); },
        "standard errors that a peak has to stand out by; 3.5 by default");
    AddSwitch(app, "--keep-alpha2", options_.keep_alpha2, "keeps peaks that are K alpha 2 companions of others");
    AddPatternInputOptions(app, "--wavelength", input_options_);
  }
  ColumnNames TableColumns() const override { return {"file", "peaks", "alpha2", "fwhm", "wavelength", "output"}; }

 private:
  std::vector<std::string> OutputNames(const InputPath& input) const override {
    return {input.Stem() + std::string(kPeakListSuffix)};
  }

  FileResult Work(const PlannedInput& planned) const override {
    PatternFile file = ReadInputPattern(planned.input, input_options_);
    const PickedPeaks picked = PickPeaks(file.pattern, options_);
    FileResult result;
    auto list = std::make_unique<OutputText>();
    WritePeakList(picked.peaks, picked.wavelength, *list);
    result.outputs.push_back(std::move(list));
    result.row = {Cell::Text(planned.input.Text()),
                  Cell::Integer(static_cast<std::int64_t>(picked.peaks.size())),
                  Cell::Integer(static_cast<std::int64_t>(picked.alpha2_count)),
                  Cell::Fixed(picked.fwhm, 4),
                  Cell::Optional(picked.wavelength),
                  Cell::Text(planned.outputs.front())};
    result.notices = std::move(file.notices);
    result.notices.insert(result.notices.end(), picked.notices.begin(), picked.notices.end());
    const std::string stem = planned.input.Stem() + ".peaks";
    if (stem.size() > kLongestStem || stem.find(' ') != std::string::npos)
      result.notices.push_back("the comparison can't select " + stem +
                               ".LST: its names have 20 characters at most and no blanks");
    return result;
  }

  PeakOptions options_;
  PatternInputOptions input_options_;
};

}  // namespace

std::unique_ptr<BatchCommand> MakePeaksCommand() {
  return std::make_unique<PeaksCommand>();
}

}  // namespace talven
