#include "app/run/ScreenCommand.h"

#include "app/run/OptionText.h"
#include "app/run/ScreeningRun.h"
#include "screening/ShareTable.h"

namespace talven {
namespace {

Row ShareRow(const CandidateFile& file, std::size_t total) {
  return {Cell::Integer(static_cast<std::int64_t>(file.index)), Cell::Integer(static_cast<std::int64_t>(total)),
          Cell::Text(file.path)};
}

/// In the order of kShareColumns.
Row ShareRow(const CoarseRow& coarse, std::size_t total, const ScreenTarget& target) {
  Row row = ShareRow(CandidateFile{coarse.index, coarse.name}, total);
  for (const double value : {coarse.score.score, coarse.score.score_as_given, coarse.score.scale, coarse.comparison.m1,
                             coarse.comparison.m2, coarse.comparison.bmatch})
    row.push_back(Cell::Real(value));
  if (coarse.lattice) {
    const Lattice& cell = *coarse.lattice;
    for (const double value : {cell.a, cell.b, cell.c, cell.alpha, cell.beta, cell.gamma})
      row.push_back(Cell::Real(value));
  } else {
    row.resize(row.size() + 6);
  }
  for (const double value : {target.coarse.Power(), target.range.wavelength, target.fwhm, target.texture ? 1.0 : 0.0})
    row.push_back(Cell::Real(value));
  return row;
}

void WriteShare(const CoarseResult& result, std::size_t total, const ScreenTarget& target, Reporter& reporter) {
  reporter.BeginTable({kShareColumns.begin(), kShareColumns.end()});
  auto failed = result.failed.begin();
  const auto add_failed_before = [&](std::size_t index) {
    for (; failed != result.failed.end() && failed->index < index; ++failed) reporter.AddRow(ShareRow(*failed, total));
  };
  for (const CoarseRow& row : result.rows) {
    add_failed_before(row.index);
    reporter.AddRow(ShareRow(row, total, target));
  }
  add_failed_before(total + 1);
}

class ScreenCommand : public BatchCommand {
 public:
  CommandText Text() const override {
    return {"screen", "which of many structures is the measured pattern's?",
            "The first file is the measured pattern or peak list (LST), the others are candidates: structures (INS,\n"
            "RES, CIF), patterns or peak lists. Cells are fitted to the pattern, within 5 % and 2.9 degrees. With\n"
            "--part the table is that of a share, for `rank` to join."};
  }
  BatchFeatures Features() const override {
    return {.files_help = "MEASURED CANDIDATE...", .has_outputs = false, .has_parts = true};
  }
  void AddOptions(CLI::App& app) override {
    AddOption(
        app, "--wavelength", "W",
        [this](const std::string& text) { options_.wavelength = RealOption("--wavelength", text, 0.01, 20.0); },
        "Angstrom, in place of the wavelength in the file");
    AddOption(
        app, "--fwhm", "W", [this](const std::string& text) { options_.fwhm = RealOption("--fwhm", text, 0.001, 5.0); },
        "width of a line at half height, degrees; 0.12 by default");
    AddSwitch(app, "--texture", options_.texture,
              "fits preferred orientation too, about 100, 010 or 001, and fits all candidates");
    AddTopOption(app, top_);
  }
  ColumnNames TableColumns() const override { return RankingColumns(); }

  void Run(const std::vector<std::string>& inputs, const BatchOptions& options, Reporter& reporter) override {
    if (inputs.size() < 2) throw CommandLineError("expected a measured pattern and candidates, found one file only");
    const std::optional<ScreenTarget> target = ReadMeasured(inputs[0], options_, reporter);
    if (!target) return;
    std::vector<CandidateFile> files;
    for (std::size_t i = 1; i < inputs.size(); ++i)
      if ((i - 1) % options.part.count == options.part.number - 1) files.push_back({i, inputs[i]});
    CoarseResult coarse = RunCoarse(*target, files, options.threads, reporter);
    if (!coarse.is_whole) return;
    if (options.has_part)
      WriteShare(coarse, inputs.size() - 1, *target, reporter);
    else
      RunRanking(*target, std::move(coarse.rows), top_, options.threads, reporter);
  }

 private:
  ScreenOptions options_;
  std::size_t top_ = 0;
};

}  // namespace

std::unique_ptr<BatchCommand> MakeScreenCommand() {
  return std::make_unique<ScreenCommand>();
}

}  // namespace talven
