#include "app/run/CompareCommand.h"

#include "app/run/CommandLineError.h"
#include "app/run/ComparisonOptions.h"
#include "app/run/FileCommand.h"
#include "app/run/OptionText.h"
#include "app/run/WholeFiles.h"
#include "comparison/ComparePeakLists.h"
#include "comparison/ComparisonLog.h"
#include "comparison/PeakListFile.h"
#include "textio/FatalIoError.h"
#include "textio/FileNames.h"
#include "textio/InputFile.h"

namespace talven {
namespace {

struct NoListener : LineListener {
  void Receive(std::string_view /*line*/) override {}
};

class CompareCommand : public FileCommand {
 public:
  CommandText Text() const override {
    return {
        "compare", "scores of peak lists against a reference",
        "The first FILE is the reference, each other one a sample with a row of its own. The settings start as the\n"
        "form of the comparison does."};
  }
  BatchFeatures Features() const override {
    return {.files_help = "the reference's peak list, then the samples'", .has_outputs = false};
  }
  void AddOptions(CLI::App& app) override {
    AddOption(
        app, "--log", "FILE", [this](const std::string& name) { log_name_ = NameOption("--log", name); },
        "writes the log of the comparison");
    AddComparisonOptions(app, settings_);
  }
  ColumnNames TableColumns() const override {
    return {"sample", "peaks", "not_matched_r", "not_matched_s", "m1", "m2", "bmatch"};
  }

 private:
  void Prepare(std::vector<std::string>& inputs) override {
    if (inputs.size() < 2) throw CommandLineError("expected a reference and at least one sample");
    if (!log_name_.empty()) CheckCommonOutput("--log", log_name_, inputs);
    ReadReference(InputPath(inputs.front()));
    inputs.erase(inputs.begin());
  }

  void ReadReference(const InputPath& input) {
    NoListener nobody;
    ComparisonLog log(log_, nobody);
    try {
      InputFile file;
      file.OpenRequired(input.Home(), input.Name());
      limit_ = FindTwoThetaLimit(ReadWavelength(file), settings_.DSPACE);
      ReadPeakList(file, reference_.list);
    } catch (const FatalIoError& error) {
      throw CommandLineError(MessageLine(input.Text(), error.what()));
    }
    if (reference_.list.count == 0) throw CommandLineError(input.Text() + ": no peaks in the reference");
    log.WriteTitle();
    log.WriteRunSeparator();
    log.WriteFileLine(" Reference ", input.Name(), FromPath(input.Home().Directory()));
    if (settings_.Apply) log.WriteTwoThetaLimit(limit_);
    const PeakBands found = PreparePeaks(settings_, limit_, reference_);
    log.WriteSettings(settings_, found.last_peak_count);
    log.WriteBandHeading();
    log.WriteBands(found);
    if (settings_.Verbose) log.WriteReferenceArea(reference_.area);
  }

  FileResult Work(const PlannedInput& planned) const override {
    InputFile file;
    file.OpenRequired(planned.input.Home(), planned.input.Name());
    PreparedPeaks sample;
    ReadPeakList(file, sample.list);
    if (sample.list.count == 0) throw FatalIoError("no peaks in the sample");
    FileResult result;
    NoListener nobody;
    OutputText text;
    ComparisonLog log(text, nobody);
    log.WriteFileLine(" Sample Name ", planned.input.Name(), FromPath(planned.input.Home().Directory()));
    log.WriteBands(PreparePeaks(settings_, limit_, sample));
    const PairScore score = ScorePair(reference_, sample, limit_, settings_);
    if (settings_.Verbose) log.WriteScoreDetails(score, settings_.SAF);
    log.WriteResult(score);
    result.common_text = text.Text();
    result.row = {Cell::Text(planned.input.Text()), Cell::Integer(score.sample_count), Cell::Integer(score.NotMatchedR),
                  Cell::Integer(score.NotMatchedS), Cell::Fixed(score.RMATCH, 4),      Cell::Fixed(score.M2, 4),
                  Cell::Fixed(score.BMATCH, 3)};
    return result;
  }

  void Gather(const std::string& common_text) override {
    if (!log_name_.empty()) sample_log_ += common_text;
  }
  void Finish() override {
    if (log_name_.empty()) return;
    const std::string text = log_.Text() + sample_log_;
    WriteWholeFiles({{log_name_, text}});
  }

  ComparisonSettings settings_ = FirstComparisonSettings();
  std::string log_name_;
  OutputText log_;
  std::string sample_log_;
  float limit_ = 0.0F;
  PreparedPeaks reference_;
};

}  // namespace

std::unique_ptr<BatchCommand> MakeCompareCommand() {
  return std::make_unique<CompareCommand>();
}

}  // namespace talven
