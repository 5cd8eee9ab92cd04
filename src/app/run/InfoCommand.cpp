#include "app/run/InfoCommand.h"

#include <cmath>

#include "app/run/FileCommand.h"
#include "app/run/JobModel.h"
#include "comparison/PeakListFile.h"
#include "crystal/ModelFromCif.h"
#include "patterns/PatternFormats.h"
#include "shelx/HklFile.h"
#include "shelx/List4File.h"
#include "textio/FatalIoError.h"
#include "textio/FileNames.h"

namespace talven {
namespace {

/// The values of a row after the file's name.
struct FileInfo {
  std::string kind;
  std::string format;
  std::size_t points = 0;
  std::optional<double> first = {};
  std::optional<double> last = {};
  std::optional<double> step = {};
  std::optional<double> wavelength = {};
  std::string title = {};
  std::vector<std::string> notices = {};
};

FileInfo InfoOfModel(const InputPath& input, const std::string& format) {
  JobModel job = ReadJobModel(input.Text(), false);
  FileInfo info{.kind = "model", .format = format, .points = job.model.atoms.size(), .title = job.model.title};
  if (job.model.wavelength > 0.0) info.wavelength = job.model.wavelength;
  info.notices = std::move(job.notices);
  if (!job.embedded_reflections.empty()) info.notices.emplace_back("holds reflections too (--data hkl)");
  return info;
}

FileInfo InfoOfHkl(const InputPath& input) {
  InputFile file;
  OpenPath(input.Text(), file);
  FileInfo info{.kind = "reflections", .format = "SHELX HKL"};
  for (std::string_view line; file.ReadLine(line);) {
    if (line.starts_with('#')) continue;
    const auto row = ReadHklRow(line);
    if (!row && info.points == 0) file.Fail("a row of h, k, l, F squared and sigma", Quote(line));
    if (!row || row->EndsList()) break;
    ++info.points;
  }
  return info;
}

FileInfo InfoOfFcf(const InputPath& input) {
  InputFile file;
  OpenPath(input.Text(), file);
  FileInfo info{.kind = "reflections", .format = "FCF LIST 4"};
  List4Reader reader(List4Values::kMeasured);
  for (std::string_view line; file.ReadLine(line);)
    if (CountLineTokens(line) == kList4Tokens && reader.Read(line)) ++info.points;
  if (info.points == 0) throw FatalIoError("no LIST 4 rows in it");
  return info;
}

FileInfo InfoOfPeaks(const InputPath& input) {
  InputFile file;
  OpenPath(input.Text(), file);
  FileInfo info{.kind = "peaks", .format = "LST"};
  if (file.Content().find("Wavelength") != std::string_view::npos) info.wavelength = Shortest(ReadWavelength(file));
  file.Rewind();
  PeakList list;
  ReadPeakList(file, list);
  if (list.count == 0) throw FatalIoError("no table of marked peaks in it");
  info.points = static_cast<std::size_t>(list.count);
  info.first = Shortest(list.TwoTheta[1]);
  info.last = Shortest(list.TwoTheta[list.count]);
  return info;
}

/// A step or angle that a reader has worked out, without the digits of its rounding.
double Rounded(double degrees) {
  return std::round(degrees * 1e6) / 1e6;
}

FileInfo InfoOfPattern(const InputPath& input) {
  PatternFile file = ReadPatternFile(ToPath(input.Text()));
  const Pattern& pattern = file.pattern;
  return {.kind = "pattern",
          .format = file.format,
          .points = pattern.PointCount(),
          .first = Rounded(pattern.two_theta.front()),
          .last = Rounded(pattern.two_theta.back()),
          .step = pattern.step ? std::optional(Rounded(*pattern.step)) : std::nullopt,
          .wavelength = pattern.wavelength,
          .title = pattern.title,
          .notices = std::move(file.notices)};
}

/// A CIF may hold a pattern, a structure or both.
FileInfo InfoOfCif(const InputPath& input) {
  try {
    return InfoOfPattern(input);
  } catch (const FatalIoError&) {
    InputFile file;
    OpenPath(input.Text(), file);
    if (!MentionsTag(file.Content(), "_cell_length_a")) throw;
    return InfoOfModel(input, "CIF");
  }
}

FileInfo InfoOf(const InputPath& input) {
  const std::string& extension = input.Extension();
  if (extension == "ins" || extension == "res")
    return InfoOfModel(input, extension == "ins" ? "SHELX INS" : "SHELX RES");
  if (extension == "hkl") return InfoOfHkl(input);
  if (extension == "fcf") return InfoOfFcf(input);
  if (extension == "lst") return InfoOfPeaks(input);
  if (extension == "cif") return InfoOfCif(input);
  return InfoOfPattern(input);
}

class InfoCommand : public FileCommand {
 public:
  CommandText Text() const override {
    return {
        "info", "what a file is",
        "Reads patterns of all kinds, models, lists of reflections and peak lists. The column points is the number\n"
        "of reflections, atoms or peaks where it is no pattern; first, last and step are in degrees."};
  }
  BatchFeatures Features() const override { return {.files_help = "files of any kind", .has_outputs = false}; }
  void AddOptions(CLI::App& /*app*/) override {}
  ColumnNames TableColumns() const override {
    return {"file", "kind", "format", "points", "first", "last", "step", "wavelength", "title"};
  }

 private:
  FileResult Work(const PlannedInput& planned) const override {
    FileInfo info = InfoOf(planned.input);
    FileResult result;
    result.row = {Cell::Text(planned.input.Text()),
                  Cell::Text(info.kind),
                  Cell::Text(info.format),
                  Cell::Integer(static_cast<std::int64_t>(info.points)),
                  Cell::Optional(info.first),
                  Cell::Optional(info.last),
                  Cell::Optional(info.step),
                  Cell::Optional(info.wavelength),
                  Cell::Text(info.title)};
    result.notices = std::move(info.notices);
    return result;
  }
};

}  // namespace

std::unique_ptr<BatchCommand> MakeInfoCommand() {
  return std::make_unique<InfoCommand>();
}

}  // namespace talven
