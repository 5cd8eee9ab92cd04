#include "app/run/RankCommand.h"

#include "app/run/OptionText.h"
#include "app/run/ScreeningRun.h"
#include "screening/ShareTable.h"
#include "textio/InputFile.h"

namespace talven {
namespace {

class RankCommand : public BatchCommand {
 public:
  CommandText Text() const override {
    return {
        "rank", "joins the tables of screen --part into one ranking",
        "The first file is the measured pattern, the others are the tables of all shares, in any order. Wavelength,\n"
        "width and texture stand in the tables. The candidates are read again by their names there, so it has to\n"
        "run in the same folder. The table is that of one `screen` over all candidates."};
  }
  BatchFeatures Features() const override {
    return {.files_help = "MEASURED TABLE...", .has_outputs = false, .has_parts = false};
  }
  void AddOptions(CLI::App& app) override { AddTopOption(app, top_); }
  ColumnNames TableColumns() const override { return RankingColumns(); }

  void Run(const std::vector<std::string>& inputs, const BatchOptions& options, Reporter& reporter) override {
    if (inputs.size() < 2) throw CommandLineError("expected a measured pattern and tables, found one file only");
    std::vector<ShareTable> shares;
    for (std::size_t i = 1; i < inputs.size(); ++i) {
      InputFile file;
      file.OpenRequired(Folder(), inputs[i]);
      shares.push_back(ReadShareTable(file));
    }
    ShareTable whole = JoinShares(shares);
    const std::optional<ScreenTarget> target = ReadMeasured(inputs[0], whole.options, reporter);
    if (!target) return;
    if (whole.has_settings && target->coarse.Power() != whole.power) {
      reporter.Fail(inputs[0], "is not the pattern that the tables were made with");
      return;
    }
    RunRanking(*target, std::move(whole.rows), top_, options.threads, reporter);
  }

 private:
  std::size_t top_ = 0;
};

}  // namespace

std::unique_ptr<BatchCommand> MakeRankCommand() {
  return std::make_unique<RankCommand>();
}

}  // namespace talven
