#include "app/run/FcalcCommand.h"

#include "app/run/FileCommand.h"
#include "app/run/FormOption.h"
#include "app/run/HalfSphereOf.h"
#include "app/run/JobModel.h"
#include "app/run/OptionText.h"
#include "crystal/ScatteringTables.h"
#include "shelx/ReadIndices.h"
#include "shelx/WriteFcf.h"
#include "textio/FatalIoError.h"
#include "ui/forms/FormFields.h"

namespace talven {
namespace {

class FcalcCommand : public FileCommand {
 public:
  CommandText Text() const override {
    return {"fcalc", "calculated F squared of a model, as an FCF",
            "Each FILE is an INS, RES or CIF, and NAME.HKL beside it says which rows are wanted; with --two-theta-max\n"
            "it is half a sphere instead. Writes NAME.fcf."};
  }
  BatchFeatures Features() const override { return {.files_help = "models: INS, RES or CIF"}; }
  void AddOptions(CLI::App& app) override {
    AddOption(
        app, "--wavelength", "W",
        [this](const std::string& text) { wavelength_ = WavelengthValue("--wavelength", text); },
        "Cu, Mo or Angstrom, in place of that of the model");
    AddOption(
        app, "--two-theta-max", "DEGREES",
        [this](const std::string& text) {
          two_theta_max_ = PatternFieldValue("--two-theta-max", pattern_field::kTwoThetaMax, text);
        },
        "half a sphere up to this angle instead of the rows of the HKL");
  }
  ColumnNames TableColumns() const override { return {"file", "atoms", "operators", "rows", "wavelength", "output"}; }

 private:
  std::vector<std::string> OutputNames(const InputPath& input) const override { return {input.Stem() + ".fcf"}; }

  std::vector<std::string> Sources(const InputPath& input) const override {
    std::vector<std::string> sources = {input.Text()};
    const auto hkl = two_theta_max_ ? std::nullopt : FindSibling(input, ".HKL");
    if (hkl) sources.push_back(*hkl);
    return sources;
  }

  FileResult Work(const PlannedInput& planned) const override {
    const InputPath& input = planned.input;
    JobModel job = ReadJobModel(input.Text(), true);
    FileResult result;
    result.notices = std::move(job.notices);
    if (wavelength_) SetWavelength(job.model, Shortest(*wavelength_));
    if (job.model.wavelength <= 0.0) throw FatalIoError("the model tells no wavelength: give --wavelength");
    std::vector<MillerIndex> indices = WantedIndices(input, job.model, result.notices);
    auto row_count = static_cast<std::int64_t>(indices.size());
    if (!planned.is_done) {
      const CalculatedList list = CalculateList(job.model, std::move(indices), input.Name());
      result.outputs.push_back(std::make_unique<OutputText>());
      WriteFcf(list, job.model, input.HeadName(), *result.outputs.back());
      if (list.power_of_ten != 0) result.notices.push_back("values are divided by " + list.Divisor());
    }
    result.row = {Cell::Text(input.Text()),
                  Cell::Integer(static_cast<std::int64_t>(job.model.atoms.size())),
                  Cell::Integer(static_cast<std::int64_t>(job.model.symmetry.Operators().size())),
                  Cell::Integer(row_count),
                  Cell::Real(job.model.wavelength),
                  Cell::Text(planned.outputs.front())};
    return result;
  }

  std::vector<MillerIndex> WantedIndices(const InputPath& input, const CrystalModel& model,
                                         std::vector<std::string>& notices) const {
    if (two_theta_max_) return HalfSphereTo(model, model.wavelength, *two_theta_max_);
    const auto path = FindSibling(input, ".HKL");
    if (!path) throw FatalIoError("no HKL beside it says which rows are wanted: give --two-theta-max");
    InputFile hkl;
    OpenPath(*path, hkl);
    IndexList rows = ReadIndices(hkl);
    if (rows.indices.empty()) hkl.Fail("rows of h, k and l", "none up to here");
    if (rows.repeated > 0)
      notices.push_back(hkl.Name() + ", line " + std::to_string(rows.first_repeated) + ": " +
                        std::to_string(rows.repeated) + " rows passed over from here on, for they repeat earlier ones");
    return std::move(rows.indices);
  }

  std::optional<float> wavelength_;
  std::optional<float> two_theta_max_;
};

}  // namespace

std::unique_ptr<BatchCommand> MakeFcalcCommand() {
  return std::make_unique<FcalcCommand>();
}

}  // namespace talven
