#include "app/run/SimulateCommand.h"

#include <algorithm>
#include <ctime>

#include "app/run/FileCommand.h"
#include "app/run/SimulateJob.h"
#include "app/run/SimulateOptions.h"
#include "app/run/SimulatedFiles.h"
#include "app/run/WorkspacePool.h"

namespace talven {
namespace {

const char* NameOf(DataSource source) {
  if (source == DataSource::kHkl) return "hkl";
  return source == DataSource::kFcf ? "fcf" : "model";
}

/// The reflection that stands at the highest point: of several the strongest, of equivalents the last.
std::vector<Cell> StrongestCells(const SimulationData& data) {
  const Pattern& pattern = data.pattern;
  const auto highest =
      static_cast<std::size_t>(std::distance(pattern.counts.begin(), std::ranges::max_element(pattern.counts)));
  const ReflectionList& list = data.list;
  const PatternReflection* strongest = nullptr;
  float strongest_f2 = -1.0F;
  for (const PatternReflection& reflection : pattern.reflections) {
    if (reflection.point != highest) continue;
    for (std::int32_t i = 1; i <= list.ReflectionCount; ++i) {
      if (list.H[i] != reflection.h || list.K[i] != reflection.k || list.L[i] != reflection.l) continue;
      if (list.F2[i] >= strongest_f2) strongest = &reflection;
      strongest_f2 = std::max(strongest_f2, list.F2[i]);
    }
  }
  const Cell angle = Cell::Fixed(pattern.two_theta[highest], 3);
  if (strongest == nullptr) return {angle, Cell(), Cell(), Cell()};
  return {angle, Cell::Integer(strongest->h), Cell::Integer(strongest->k), Cell::Integer(strongest->l)};
}

class SimulateCommand : public FileCommand {
 public:
  CommandText Text() const override {
    return {"simulate", "reflections or a model to a pattern, as options 1 and 7",
            "Each FILE is an INS, RES, HKL, FCF or CIF and names a job, whose other files lie beside it. Writes\n"
            "NAME.ING, CPI, XY, PAT and NAME.sbrag, the list of reflections. The column strongest is 2theta of the\n"
            "highest point; h k l the reflection there."};
  }
  BatchFeatures Features() const override { return {.files_help = "INS, RES, HKL, FCF or CIF"}; }
  void AddOptions(CLI::App& app) override {
    app_ = &app;
    AddSimulateOptions(app, options_);
  }

  ColumnNames TableColumns() const override {
    ColumnNames names = {"file",  "source", "rows", "kept",   "expanded",  "merged", "wavelength", "file_wavelength",
                         "first", "last",   "step", "points", "strongest", "h",      "k",          "l"};
    if (options_.expands_by_symmetry) names.insert(names.end(), {"expansion", "unique"});
    if (options_.is_textbook) names.insert(names.end(), {"profile", "fwhm"});
    if (options_.has_standard_heads) names.emplace_back("heads");
    return names;
  }

 private:
  void Prepare(std::vector<std::string>& /*inputs*/) override {
    CheckSimulateOptions(*app_, options_);
    const std::time_t now = std::time(nullptr);
    if (const std::tm* const local = std::localtime(&now)) {
      date_ = {local->tm_year + 1900, local->tm_mon + 1, local->tm_mday};
      time_ = {local->tm_hour, local->tm_min, local->tm_sec};
    }
  }

  std::vector<std::string> OutputNames(const InputPath& input) const override {
    std::vector<std::string> names;
    for (const std::string& format : options_.formats) {
      std::string extension = format;
      if (format != "sbrag")
        std::ranges::transform(extension, extension.begin(), [](char c) { return char(c - 0x20); });
      names.push_back(input.Stem() + "." + extension);
    }
    return names;
  }

  std::vector<std::string> Sources(const InputPath& input) const override {
    std::vector<std::string> sources = {input.Text()};
    const SimulateFiles files = FindSimulateFiles(input, options_.data);
    if (files.model) sources.push_back(*files.model);
    if (files.reflections) sources.push_back(*files.reflections);
    return sources;
  }

  FileResult Work(const PlannedInput& planned) const override {
    return workspaces_.With([this, &planned](SimulationData& data) {
      const SimulatedJob job = SimulateJob(planned.input, options_, data);
      const std::string job_name = planned.input.HeadName();
      data.pattern.title = job_name + " (Talven)";
      FileResult result;
      result.row = RowOf(planned.input, job, data);
      result.notices = job.notices;
      const SimulatedFileHead head{
          .job_name = job_name,
          .end_value = static_cast<double>(job.result.extent.TopAngle),
          .date = date_,
          .time = time_,
          .is_standard = options_.has_standard_heads,
      };
      for (const std::string& format : options_.formats) {
        if (planned.is_done) break;
        result.outputs.push_back(std::make_unique<OutputText>());
        WriteSimulatedFile(format, head, data, *result.outputs.back());
      }
      return result;
    });
  }

  Row RowOf(const InputPath& input, const SimulatedJob& job, const SimulationData& data) const {
    const Pattern& pattern = data.pattern;
    Row row = {Cell::Text(input.Text()),
               Cell::Text(NameOf(job.source)),
               Cell::Integer(job.rows),
               Cell::Integer(job.kept),
               Cell::Integer(job.result.ExpandedCount),
               Cell::Integer(data.list.ReflectionCount),
               Cell::Real(job.options.Wavelength),
               job.file_wavelength > 0.0F ? Cell::Real(job.file_wavelength) : Cell(),
               Cell::Fixed(pattern.two_theta.front(), 3),
               Cell::Fixed(pattern.two_theta.back(), 3),
               Cell::Real(job.options.Step),
               Cell::Integer(static_cast<std::int64_t>(pattern.PointCount()))};
    std::ranges::move(StrongestCells(data), std::back_inserter(row));
    if (options_.expands_by_symmetry) {
      row.push_back(Cell::Text(job.unique ? "symmetry" : "none"));
      row.push_back(job.unique ? Cell::Integer(*job.unique) : Cell());
    }
    if (options_.is_textbook) row.insert(row.end(), {Cell::Text("textbook"), Cell::Real(options_.fwhm)});
    if (options_.has_standard_heads) row.push_back(Cell::Text("standard"));
    return row;
  }

  const CLI::App* app_ = nullptr;
  SimulateOptions options_;
  CalendarDate date_;
  ClockTime time_;
  mutable WorkspacePool<SimulationData> workspaces_;
};

}  // namespace

std::unique_ptr<BatchCommand> MakeSimulateCommand() {
  return std::make_unique<SimulateCommand>();
}

}  // namespace talven
