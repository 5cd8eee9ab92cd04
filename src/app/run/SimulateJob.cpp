#include "app/run/SimulateJob.h"

#include "app/run/HalfSphereOf.h"
#include "app/run/JobModel.h"
#include "app/run/Table.h"
#include "app/run/UnevenNotice.h"
#include "crystal/CellGeometry.h"
#include "crystal/ScatteringTables.h"
#include "shelx/CellLine.h"
#include "shelx/FcfListCode.h"
#include "shelx/ReadReflections.h"
#include "simulation/ModelReflections.h"
#include "simulation/SymmetryExpansion.h"
#include "simulation/TextbookPattern.h"
#include "textio/FatalIoError.h"

namespace talven {
namespace {

constexpr float kModelTwoThetaMax = 40.0F;
constexpr const char* kTooMany = "more than 30,000 reflections: lower --two-theta-max";

/// A job on its way.
struct Run {
  const InputPath& input;
  const SimulateOptions& options;
  SimulationData& data;
  SimulateFiles files;
  SimulatedJob job;
  UnitCell cell;
  /// Read where it is wanted.
  std::optional<JobModel> model;
};

bool IsCif(const Run& run) {
  return InputPath(*run.files.model).Extension() == "cif";
}

void ReadCell(Run& run) {
  if (!run.files.model) throw FatalIoError("no INS, RES or CIF with its cell");
  const bool is_calculated = run.job.source == DataSource::kModel;
  if (is_calculated || IsCif(run)) {
    run.model = ReadJobModel(*run.files.model, is_calculated);
    run.cell = StoredCell(run.model->model);
  } else {
    InputFile ins;
    OpenPath(*run.files.model, ins);
    const auto cell = ReadCellLine(ins);
    if (!cell) throw FatalIoError(*run.files.model + ": no CELL line in it");
    run.cell = *cell;
  }
  run.job.file_wavelength = run.cell.Wavelength;
  if (run.options.takes_cell_wavelength) run.job.options.Wavelength = run.cell.Wavelength;
  if (!(run.job.options.Wavelength > 0.0F)) throw FatalIoError("the file tells no wavelength: give --wavelength");
}

void TellReading(const ReflectionReading& reading, const TextInput& text, std::vector<std::string>& notices) {
  if (reading.limit_met) notices.push_back(std::string(kReflectionLimitMessage) + ": later rows were not read");
  if (reading.passed_over_count > 0)
    notices.push_back(text.Name() + ", line " + std::to_string(reading.first_passed_over) + ": " +
                      std::to_string(reading.passed_over_count) +
                      " rows passed over from here on, for they do not hold seven texts with blanks between");
  if (reading.unreadable_line > 0)
    notices.push_back(text.Name() + ", line " + std::to_string(reading.unreadable_line) +
                      ": no reflection, the list ends here: " + Quote(reading.unreadable_text));
}

void ReadMeasured(Run& run) {
  const bool is_fcf = run.job.source == DataSource::kFcf;
  const ReciprocalCell cell = DeriveReciprocalCell(run.cell);
  const ReflectionLimits limits = run.job.options.Limits();
  InputFile file;
  TextInput embedded;
  if (run.files.reflections) {
    OpenPath(*run.files.reflections, file);
  } else if (run.model && !run.model->embedded_reflections.empty()) {
    embedded = TextInput(*run.files.model + ": its HKL", run.model->embedded_reflections);
  } else {
    if (run.model && !is_fcf) throw FatalIoError(*run.files.model + ": no reflections in it");
    throw FatalIoError(is_fcf ? "no FCF of that name" : "no HKL of that name");
  }
  TextInput& text = run.files.reflections ? static_cast<TextInput&>(file) : embedded;
  const ReflectionReading reading = is_fcf ? ReadFcfReflections(text, cell, limits, run.data.list)
                                           : ReadHklReflections(text, cell, limits, run.data.list);
  if (const auto hint = is_fcf ? HintForFcf(text.Name(), text.Content()) : std::nullopt)
    run.job.notices.push_back(*hint);
  TellReading(reading, text, run.job.notices);
  run.job.rows = reading.rows_read;
  run.job.kept = reading.rows_kept;
}

void Calculate(Run& run) {
  PatternOptions& options = run.job.options;
  // Half a sphere is whole as it is.
  options.HemisphereExpansion = false;
  if (!options.Limits().HasAngleLimit()) options.TwoThetaMax = kModelTwoThetaMax;
  CrystalModel& model = run.model->model;
  const double wavelength = Shortest(options.Wavelength);
  SetWavelength(model, wavelength);
  const auto indices = HalfSphereTo(model, wavelength, static_cast<double>(options.TwoThetaMax));
  if (!CalculateReflections(model, indices, options.Limits(), run.data.list)) throw FatalIoError(kTooMany);
  run.job.rows = static_cast<std::int32_t>(indices.size());
  run.job.kept = run.data.list.ReflectionCount;
  std::ranges::move(run.model->notices, std::back_inserter(run.job.notices));
}

void ExpandBySymmetry(Run& run) {
  run.job.options.HemisphereExpansion = false;
  if (!run.model) run.model = ReadJobModel(*run.files.model, false);
  const SymmetryGroup& symmetry = run.model->model.symmetry;
  if (!symmetry.IsGroup()) throw FatalIoError(*run.files.model + ": its operators are not those of a space group");
  const SymmetryExpansion expansion =
      ExpandBySymmetry(symmetry, DeriveReciprocalCell(run.cell), run.job.options.Wavelength, run.data.list);
  if (expansion.limit_met) throw FatalIoError(kTooMany);
  run.job.unique = expansion.unique_count;
}

void RefuseOutcome(const Run& run) {
  switch (run.job.result.outcome) {
    case SimulationOutcome::kNoReflections:
      throw FatalIoError("no reflection kept of " + std::to_string(run.job.rows) + " rows");
    case SimulationOutcome::kTooManyPoints:
      throw FatalIoError("more than 10,000 points: lower --two-theta-max or raise --step");
    case SimulationOutcome::kNoPoints:
      throw FatalIoError("no points above --two-theta-min");
    case SimulationOutcome::kWideBinSum:
      if (!run.options.is_textbook)
        throw FatalIoError("the sum of a bin does not fit ten columns: scale F squared down");
      break;
    case SimulationOutcome::kFinished:
      break;
  }
}

void TellUneven(Run& run) {
  try {
    if (!run.model) run.model = ReadJobModel(*run.files.model, false);
  } catch (const FatalIoError&) {
    return;  // A file of which only the cell can be read says nothing about symmetry.
  }
  const auto uneven = FindUnevenLines(run.model->model.symmetry, run.data.list);
  if (!uneven.empty()) run.job.notices.push_back(UnevenNotice(uneven));
}

}  // namespace

SimulateFiles FindSimulateFiles(const InputPath& input, DataSource wanted) {
  const std::string& extension = input.Extension();
  SimulateFiles files{.source = wanted, .model = FindModelFile(input), .reflections = {}};
  const auto find = [&input, &extension](const char* own, const char* upper) {
    return extension == own ? std::optional(input.Text()) : FindSibling(input, upper);
  };
  const auto hkl = find("hkl", ".HKL");
  const auto fcf = find("fcf", ".FCF");
  if (wanted == DataSource::kFirstThere) {
    files.source = hkl ? DataSource::kHkl : fcf ? DataSource::kFcf : DataSource::kModel;
    if (extension == "fcf") files.source = DataSource::kFcf;
    if (extension == "cif") files.source = DataSource::kModel;
  }
  if (files.source == DataSource::kHkl && extension != "cif") files.reflections = hkl;
  if (files.source == DataSource::kFcf) files.reflections = fcf;
  return files;
}

SimulatedJob SimulateJob(const InputPath& input, const SimulateOptions& options, SimulationData& data) {
  Run run{input, options, data, FindSimulateFiles(input, options.data), {}, {}, {}};
  run.job.source = run.files.source;
  run.job.options = options.pattern;
  data.list.Range = IndexRange();
  ReadCell(run);
  const bool is_calculated = run.job.source == DataSource::kModel;
  if (is_calculated) {
    Calculate(run);
  } else {
    ReadMeasured(run);
  }
  if (options.expands_by_symmetry && !is_calculated) ExpandBySymmetry(run);
  run.job.result = Simulate(run.cell, run.job.options, data);
  RefuseOutcome(run);
  if (run.job.result.limit_met)
    run.job.notices.push_back(std::string(kReflectionLimitMessage) + ": not all copies by signs were made");
  if (!options.expands_by_symmetry && !is_calculated) TellUneven(run);
  if (options.is_textbook)
    FillTextbookPattern(data.list, run.job.options, run.job.result.extent.PointCount, options.fwhm, data.pattern);
  return run.job;
}

}  // namespace talven
