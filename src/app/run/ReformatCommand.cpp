#include "app/run/ReformatCommand.h"

#include "app/run/CommandLineError.h"
#include "app/run/FileCommand.h"
#include "app/run/FormOption.h"
#include "app/run/OptionText.h"
#include "app/run/PatternInput.h"
#include "app/run/PatternRow.h"
#include "patterns/Reformat.h"
#include "textio/FatalIoError.h"
#include "textio/FixedText.h"
#include "ui/RunState.h"
#include "ui/forms/FormFields.h"

namespace talven {
namespace {

class ReformatCommand : public FileCommand {
 public:
  CommandText Text() const override {
    return {"reformat", "a pattern to another wavelength or step, as option 4",
            "Writes NAME.ING. What is not given stays as the pattern has it; its step must be a multiple of 0.005."};
  }
  BatchFeatures Features() const override { return {.files_help = "patterns of any kind"}; }
  void AddOptions(CLI::App& app) override {
    AddOption(
        app, "--wavelength", "W",
        [this](const std::string& text) { new_wavelength_ = WavelengthValue("--wavelength", text); },
        "new wavelength: Cu, Mo or Angstrom");
    AddOption(
        app, "--step", "DEGREES",
        [this](const std::string& text) { step_ = PatternFieldValue("--step", pattern_field::kStep, text); },
        "new step");
    AddPatternInputOptions(app, "--from-wavelength", input_options_);
  }
  ColumnNames TableColumns() const override { return ConversionColumns(); }

 private:
  void Prepare(std::vector<std::string>& /*inputs*/) override {
    if (!new_wavelength_ && !step_) throw CommandLineError("--wavelength or --step has to be given");
  }
  std::vector<std::string> OutputNames(const InputPath& input) const override { return {input.Stem() + ".ING"}; }

  FileResult Work(const PlannedInput& planned) const override {
    PatternFile file = ReadInputPattern(planned.input, input_options_);
    TextInput ing(planned.input.Name(), IngTextOf(planned.input, file, input_options_));
    const IngPattern pattern = Reformat(ing);
    FileResult result;
    result.outputs.push_back(std::make_unique<OutputText>());
    WriteIng(*result.outputs.back(), JobText(planned.input.HeadName()).View(), pattern);
    result.row = ConversionRow(planned, file.format, pattern.rows.size(), Shortest(pattern.header.Wavelength));
    result.notices = std::move(file.notices);
    return result;
  }

  IngPattern Reformat(TextInput& ing) const {
    const auto work = std::make_unique<ReformatWork>();
    IngHeader header = ReadIngHeader(ing);
    ChooseFineStep(header.Step, work->FineStep);
    if (work->FineStep == 0.0F) throw FatalIoError("the step is not a multiple of 0.005 degrees");
    const ReformatOptions options{.OldWavelength = header.Wavelength,
                                  .NewWavelength = new_wavelength_.value_or(header.Wavelength),
                                  .NewStep = step_.value_or(header.Step)};
    switch (FillWorkingGrid(ing, options, header, *work)) {
      case ReformatOutcome::kTooManyPoints:
        throw FatalIoError("100,000 point limit");
      case ReformatOutcome::kNothingLeft:
        throw FatalIoError("nothing of the pattern is left at the new wavelength");
      case ReformatOutcome::kFilled:
        break;
    }
    return BinWorkingGrid(options, header, *work);
  }

  std::optional<float> new_wavelength_;
  std::optional<float> step_;
  PatternInputOptions input_options_;
};

}  // namespace

std::unique_ptr<BatchCommand> MakeReformatCommand() {
  return std::make_unique<ReformatCommand>();
}

}  // namespace talven
