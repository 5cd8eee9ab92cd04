#include "patterns/formats/xml/XrdmlPattern.h"

#include <algorithm>

#include "patterns/formats/FinishPattern.h"
#include "patterns/formats/FormatText.h"
#include "patterns/formats/xml/XmlText.h"
#include "textio/FieldInput.h"

namespace talven {
namespace {

std::vector<pugi::xml_node> FindScans(const pugi::xml_node& root) {
  std::vector<pugi::xml_node> scans;
  for (const pugi::xml_node& measurement : root.children("xrdMeasurement"))
    for (const pugi::xml_node& scan : measurement.children("scan")) scans.push_back(scan);
  return scans;
}

/// K alpha 2 counts where the file says that the measurement is meant to hold both lines.
void TakeWavelength(const pugi::xml_node& used, Pattern& pattern) {
  const std::string_view intended = used.attribute("intended").value();
  if (intended.starts_with("K-Beta")) {
    pattern.wavelength = PositiveNumber(used.child_value("kBeta"));
    return;
  }
  if (intended.starts_with("K-Alpha 2")) {
    pattern.wavelength = PositiveNumber(used.child_value("kAlpha2"));
    return;
  }
  pattern.wavelength = PositiveNumber(used.child_value("kAlpha1"));
  if (intended != "K-Alpha") return;
  pattern.wavelength_alpha2 = PositiveNumber(used.child_value("kAlpha2"));
  pattern.alpha2_ratio = PositiveNumber(used.child_value("ratioKAlpha2KAlpha1"));
}

/// "Diffractometer system=EMPYREAN" in the remarks of the file.
std::string FindInstrument(const pugi::xml_node& root) {
  constexpr std::string_view kKey = "Diffractometer system=";
  for (const pugi::xml_node& entry : root.child("comment").children("entry")) {
    const std::string_view text = entry.child_value();
    const std::size_t at = text.find(kKey);
    if (at == std::string_view::npos) continue;
    const std::string_view value = text.substr(at + kKey.size());
    return std::string(TrimSpace(value.substr(0, value.find(','))));
  }
  return {};
}

void TakeCounts(const std::string& name, const pugi::xml_node& points, PatternFile& file) {
  std::vector<double>& counts = file.pattern.counts;
  if (const pugi::xml_node intensities = points.child("intensities")) {
    counts = ReadNumberList(name, intensities, "intensities");
    return;
  }
  if (!points.child("counts")) FailInFile(name, "intensities or counts among the data points", "neither");
  counts = ReadNumberList(name, points.child("counts"), "counts");
  const std::vector<double> factors =
      ReadNumberList(name, points.child("beamAttenuationFactors"), "attenuation factors");
  if (factors.empty()) return;
  if (factors.size() != counts.size())
    FailInFile(name, "one attenuation factor to a point, " + std::to_string(counts.size()),
               std::to_string(factors.size()));
  if (std::ranges::all_of(factors, [](double f) { return f == 1.0; })) return;
  for (std::size_t i = 0; i < counts.size(); ++i) counts[i] *= factors[i];
  file.notices.emplace_back("The counts were multiplied by their beam attenuation factors.");
}

double RequirePosition(const std::string& name, const pugi::xml_node& positions, const char* tag) {
  const auto number = LeadingNumber(positions.child_value(tag));
  if (!number) FailInFile(name, "an angle in " + std::string(tag), Quote(positions.child_value(tag)));
  return *number;
}

void SetAngles(const std::string& name, const pugi::xml_node& points, Pattern& pattern) {
  const pugi::xml_node positions = points.find_child_by_attribute("positions", "axis", "2Theta");
  const std::string what = "a scan of " + (pattern.scan_axis.empty() ? "an axis not told" : pattern.scan_axis);
  if (!positions) FailInFile(name, "positions of 2Theta", what + " without any");
  if (const pugi::xml_node common = positions.child("commonPosition"))
    FailInFile(name, "a scan of 2theta",
               what + " with 2theta at " + std::string(TrimSpace(common.child_value())) + " degrees");
  if (const pugi::xml_node list = positions.child("listPositions")) {
    pattern.two_theta = ReadNumberList(name, list, "positions of 2Theta");
    if (pattern.two_theta.size() == pattern.PointCount()) return;
    FailInFile(name, "as many positions as counts, " + std::to_string(pattern.PointCount()),
               std::to_string(pattern.two_theta.size()));
  }
  const double first = RequirePosition(name, positions, "startPosition");
  const double last = RequirePosition(name, positions, "endPosition");
  if (first == last) FailInFile(name, "a scan of 2theta", what + " with 2theta at " + AngleText(first) + " degrees");
  SpreadAngles(name, first, last, pattern);
}

}  // namespace

PatternFile ReadXrdml(const std::string& name, std::string_view text, const PatternReadOptions& options) {
  pugi::xml_document document;
  ParseXml(name, text, document);
  const pugi::xml_node root = document.child("xrdMeasurements");
  PatternFile file;
  file.format = "XRDML";
  Pattern& pattern = file.pattern;
  const std::vector<pugi::xml_node> scans = FindScans(root);
  const pugi::xml_node scan = scans[ChooseScan(name, scans.size(), options, file)];
  const pugi::xml_node points = scan.child("dataPoints");
  pattern.title = TrimSpace(root.child("sample").child_value("name"));
  if (pattern.title.empty()) pattern.title = TrimSpace(root.child("sample").child_value("id"));
  pattern.instrument = FindInstrument(root);
  pattern.scan_axis = scan.attribute("scanAxis").value();
  TakeWavelength(scan.parent().child("usedWavelength"), pattern);
  pattern.step_time = PositiveNumber(points.child_value("commonCountingTime"));
  if (points.child("countingTimes"))
    file.notices.emplace_back("The points have counting times of their own; the counts are as they stand.");
  TakeCounts(name, points, file);
  SetAngles(name, points, pattern);
  FinishPattern(name, file);
  return file;
}

}  // namespace talven
