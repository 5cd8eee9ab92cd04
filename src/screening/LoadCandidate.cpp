#include "screening/LoadCandidate.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>
#include <utility>

#include "comparison/PeakListFile.h"
#include "crystal/ModelFromCif.h"
#include "crystal/ScatteringTables.h"
#include "patterns/PatternFormats.h"
#include "shelx/CheckModel.h"
#include "shelx/ReadModel.h"
#include "textio/FatalIoError.h"
#include "textio/FileNames.h"
#include "textio/InputFile.h"
#include "textio/LetterCase.h"

namespace talven {
namespace {

/// Lines of half a sphere of a structure: beyond this the cell is hardly meant.
constexpr double kMostLines = 5e6;

std::string Extension(const std::string& path) {
  const std::size_t point = path.find_last_of("./\\");
  if (point == std::string::npos || path[point] != '.') return {};
  return ToLower(std::string_view(path).substr(point + 1));
}

bool HasWavelengthLine(const InputFile& file) {
  constexpr std::string_view kKeyword = "   Radiation Wavelength";
  const std::string_view content = file.Content();
  return content.starts_with(kKeyword) || content.find("\n" + std::string(kKeyword)) != std::string_view::npos;
}

void CheckModel(const CrystalModel& model, const LineRange& range, const std::string& path) {
  if (!model.lattice.IsValid()) throw FatalIoError(path + ": the cell has no volume");
  if (model.atoms.empty()) throw FatalIoError(path + ": there are no atoms in it");
  const double radius = std::sqrt(InverseSquareSpacingAt(range.last, range.wavelength)) / (1.0 - kSpacingMargin);
  const double lines = 2.0 / 3.0 * std::numbers::pi * radius * radius * radius * model.lattice.Volume();
  if (lines > kMostLines) throw FatalIoError(path + ": the cell is so large that it has more than 5,000,000 lines");
}

Candidate StructureCandidate(CrystalModel model, std::vector<std::string> notices, const std::string& path,
                             const ScreenTarget& target) {
  CheckModel(model, target.range, path);
  SetWavelength(model, target.range.wavelength);
  Candidate candidate = CandidateOf(model, target.range, target.texture);
  candidate.notices = std::move(notices);
  return candidate;
}

struct PeakListReading {
  PeakList peaks;
  /// Angstrom, where the file tells it.
  std::optional<double> wavelength;
};

/// A list of marked peaks, as the comparison reads it. Throws FatalIoError, also for a list without a peak.
PeakListReading LoadPeakList(const Folder& folder, const std::string& path) {
  PeakListReading reading;
  InputFile file;
  file.OpenRequired(folder, path);
  if (HasWavelengthLine(file)) reading.wavelength = ReadWavelength(file);
  ReadPeakList(file, reading.peaks);
  if (reading.peaks.count == 0) throw FatalIoError(path + ": there are no marked peaks in it");
  return reading;
}

Candidate PeakListCandidate(const Folder& folder, const std::string& path, const ScreenTarget& target) {
  const PeakListReading reading = LoadPeakList(folder, path);
  const auto angles = reading.peaks.TwoTheta.Range(1, reading.peaks.count);
  const auto heights = reading.peaks.Intensity.Range(1, reading.peaks.count);
  Candidate candidate = CandidateOfLines({angles.begin(), angles.end()}, {heights.begin(), heights.end()},
                                         reading.wavelength.value_or(target.range.wavelength));
  if (!reading.wavelength)
    candidate.notices.emplace_back("tells no wavelength; that of the measured pattern was taken");
  return candidate;
}

Candidate PatternCandidate(const Folder& folder, const std::string& path, const ScreenTarget& target) {
  PatternFile file = ReadPatternFile(folder.PathOf(path).value_or(ToPath(path)));
  Candidate candidate =
      CandidateOfPattern(file.pattern, file.pattern.wavelength.value_or(target.range.wavelength), target.fwhm);
  candidate.notices.insert(candidate.notices.begin(), file.notices.begin(), file.notices.end());
  if (!file.pattern.wavelength)
    candidate.notices.emplace_back("tells no wavelength; that of the measured pattern was taken");
  return candidate;
}

Candidate LoadByExtension(const Folder& folder, const std::string& path, const ScreenTarget& target) {
  const std::string extension = Extension(path);
  if (extension == "lst") return PeakListCandidate(folder, path, target);
  if (extension != "ins" && extension != "res" && extension != "cif") return PatternCandidate(folder, path, target);
  InputFile file;
  file.OpenRequired(folder, path);
  if (extension == "cif") {
    if (!MentionsTag(file.Content(), "_atom_site_fract_x")) return PatternCandidate(folder, path, target);
    CifStructure structure = ModelFromCif(file);
    for (const ModelFault& fault : CheckModel(structure.model, {}))
      structure.notices.push_back(file.Name() + ": " + fault.text);
    return StructureCandidate(std::move(structure.model), std::move(structure.notices), path, target);
  }
  ModelReading reading = ReadModel(file);
  return StructureCandidate(std::move(reading.model), std::move(reading.notices), path, target);
}

}  // namespace

ScreenTarget LoadScreenTarget(const Folder& folder, const std::string& path, const ScreenOptions& options) {
  if (Extension(path) == "lst") {
    const PeakListReading reading = LoadPeakList(folder, path);
    ScreenOptions known = options;
    if (!(known.wavelength > 0.0)) known.wavelength = reading.wavelength.value_or(0.0);
    return MakeScreenTarget(reading.peaks, known);
  }
  const PatternFile file = ReadPatternFile(folder.PathOf(path).value_or(ToPath(path)));
  ScreenTarget target = MakeScreenTarget(file.pattern, options);
  target.notices.insert(target.notices.begin(), file.notices.begin(), file.notices.end());
  return target;
}

Candidate LoadCandidate(const Folder& folder, const std::string& path, const ScreenTarget& target) {
  Candidate candidate = LoadByExtension(folder, path, target);
  candidate.name = path;
  return candidate;
}

}  // namespace talven
