#include "patterns/formats/zip/RasxPattern.h"

#include <algorithm>

#include "patterns/formats/FinishPattern.h"
#include "patterns/formats/FormatText.h"
#include "patterns/formats/xml/XmlText.h"
#include "textio/FieldInput.h"
#include "textio/TextInput.h"

namespace talven {
namespace {

std::string ProfileName(std::size_t scan) {
  const std::string number = std::to_string(scan);
  return "Data" + number + "/Profile" + number + ".txt";
}

std::string ConditionsName(std::size_t scan) {
  const std::string number = std::to_string(scan);
  return "Data" + number + "/MesurementConditions" + number + ".xml";
}

bool Holds(const ZipArchive& archive, const std::string& name) {
  return std::ranges::find(archive.Names(), name) != archive.Names().end();
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
  return Holds(archive, ProfileName(0));
}

PatternFile ReadRasx(const std::string& name, const ZipArchive& archive, const PatternReadOptions& options) {
  PatternFile file;
  file.format = "RASX";
  std::size_t count = 0;
  while (Holds(archive, ProfileName(count))) ++count;
  const std::size_t scan = ChooseScan(name, count, options, file);
  TakeConditions(name, archive, ConditionsName(scan), file);
  TextInput profile(archive.NameOf(ProfileName(scan)), archive.Require(ProfileName(scan)));
  ReadProfile(profile, file);
  FinishPattern(name, file);
  return file;
}

}  // namespace talven
