#include "patterns/formats/zip/RasxPattern.h"

#include <algorithm>

#include "patterns/formats/FinishPattern.h"
#include "patterns/formats/FormatText.h"
#include "patterns/formats/xml/XmlText.h"
#include "textio/FieldInput.h"
#include "textio/TextInput.h"

namespace talven {
namespace {

/// The names of one scan's entries.
struct Scan {
  std::size_t number = 0;
  std::string profile;
  std::string conditions;
};

/// N of "DataN/ProfileM.txt", nothing for another name.
std::optional<std::size_t> ProfileNumber(std::string_view entry) {
  constexpr std::string_view kFolder = "Data";
  const std::size_t slash = std::min(entry.find('/'), entry.size());
  if (!entry.starts_with(kFolder) || !entry.substr(slash).starts_with("/Profile") || !entry.ends_with(".txt"))
    return std::nullopt;
  const auto number = ReadI(entry.substr(kFolder.size(), slash - kFolder.size()));
  return number && *number >= 0 ? std::optional(static_cast<std::size_t>(*number)) : std::nullopt;
}

/// The conditions have their name from the instrument's spelling.
std::string ConditionsOf(const ZipArchive& archive, std::string_view profile) {
  const std::string folder(profile.substr(0, profile.find('/') + 1));
  for (const std::string& entry : archive.Names())
    if (entry.starts_with(folder + "MesurementConditions") || entry.starts_with(folder + "MeasurementConditions"))
      return entry;
  return folder + "MesurementConditions.xml";
}

/// By the numbers of their folders, whatever the first one is.
std::vector<Scan> FindScans(const ZipArchive& archive) {
  std::vector<Scan> scans;
  for (const std::string& entry : archive.Names())
    if (const auto number = ProfileNumber(entry))
      scans.push_back({.number = *number, .profile = entry, .conditions = ConditionsOf(archive, entry)});
  std::ranges::stable_sort(scans, {}, &Scan::number);
  return scans;
}

void ReadProfile(TextInput& profile, PatternFile& file) {
  Pattern& pattern = file.pattern;
  bool is_attenuated = false;
  for (std::string_view line; profile.ReadLine(line);) {
    if (TrimSpace(line).empty()) continue;
    std::string_view rest = line;
    const auto angle = ReadReal<double>(NextWord(rest));
    const auto count = ReadReal<double>(NextWord(rest));
    const std::string_view third = NextWord(rest);
    const auto factor = third.empty() ? std::optional(1.0) : ReadReal<double>(third);
    if (!angle || !count || !factor) profile.Fail("2theta, intensity and attenuation factor", Quote(line));
    is_attenuated = is_attenuated || *factor != 1.0;
    pattern.two_theta.push_back(*angle);
    pattern.counts.push_back(*count * *factor);
  }
  if (is_attenuated) file.notices.emplace_back("The intensities were multiplied by their attenuation factors.");
}

void TakeWavelength(const pugi::xml_node& generator, Pattern& pattern) {
  const std::string type = ToLower(TrimSpace(generator.child_value("WaveType")));
  const bool is_beta = type.find("kb") != std::string::npos;
  pattern.wavelength = PositiveNumber(generator.child_value(is_beta ? "WavelengthKbeta" : "WavelengthKalpha1"));
  if (is_beta || type.find("ka1") != std::string::npos) return;
  pattern.wavelength_alpha2 = PositiveNumber(generator.child_value("WavelengthKalpha2"));
}

void TakeConditions(const std::string& name, const ZipArchive& archive, const std::string& entry, PatternFile& file) {
  const auto text = archive.Read(entry);
  if (!text) {
    file.notices.push_back("There is no " + entry + ": wavelength and axis are not told.");
    return;
  }
  pugi::xml_document document;
  ParseXml(archive.NameOf(entry), *text, document);
  const pugi::xml_node root = document.document_element();
  const pugi::xml_node general = root.child("GeneralInformation");
  file.pattern.title = TrimSpace(general.child_value("SampleName"));
  file.pattern.instrument = TrimSpace(general.child_value("SystemName"));
  TakeWavelength(FindElement(root, "XrayGenerator"), file.pattern);
  file.pattern.scan_axis = TrimSpace(root.child("ScanInformation").child_value("AxisName"));
  const std::string axis = ToLower(file.pattern.scan_axis);
  if (!axis.empty() && axis.find("twotheta") == std::string::npos && axis.find("2theta") == std::string::npos)
    FailInFile(name, "a scan of 2theta", "a scan of " + file.pattern.scan_axis);
}

}  // namespace

bool HoldsRasx(const ZipArchive& archive) {
  return !FindScans(archive).empty();
}

PatternFile ReadRasx(const std::string& name, const ZipArchive& archive, const PatternReadOptions& options) {
  PatternFile file;
  file.format = "RASX";
  const std::vector<Scan> scans = FindScans(archive);
  const Scan& scan = scans[ChooseScan(name, scans.size(), options, file)];
  TakeConditions(name, archive, scan.conditions, file);
  TextInput profile(archive.NameOf(scan.profile), archive.Require(scan.profile));
  ReadProfile(profile, file);
  FinishPattern(name, file);
  return file;
}

}  // namespace talven
