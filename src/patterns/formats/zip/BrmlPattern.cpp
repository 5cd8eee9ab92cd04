#include "patterns/formats/zip/BrmlPattern.h"

#include <algorithm>

#include "patterns/formats/FinishPattern.h"
#include "patterns/formats/FormatText.h"
#include "patterns/formats/xml/XmlText.h"
#include "textio/FieldInput.h"

namespace talven {
namespace {

constexpr std::string_view kRawData = "/RawData";
constexpr std::string_view kFolder = "Experiment";

/// Values of a Datum by their place, from 0.
struct Columns {
  std::optional<std::size_t> factor;
  std::size_t two_theta = 0;
  std::size_t counts = 0;
};

/// The scans' entries by experiment and number: "Experiment0/RawData2.xml" before "Experiment0/RawData10.xml".
std::vector<std::string> FindRawData(const ZipArchive& archive) {
  std::vector<std::string> found;
  for (const std::string& name : archive.Names())
    if (name.starts_with(kFolder) && name.find(kRawData) != std::string::npos && name.ends_with(".xml"))
      found.push_back(name);
  std::ranges::sort(found, [](const std::string& a, const std::string& b) {
    return a.size() != b.size() ? a.size() < b.size() : a < b;
  });
  return found;
}

/// The measured route where one says so, else the first.
pugi::xml_node FindRoute(const pugi::xml_node& root) {
  const pugi::xml_node routes = root.child("DataRoutes");
  const pugi::xml_node measured = routes.find_child_by_attribute("DataRoute", "RouteFlag", "Measured");
  return measured ? measured : routes.child("DataRoute");
}

std::optional<std::size_t> FindAxis(const pugi::xml_node& fields, const char* tag) {
  std::size_t index = 0;
  for (const pugi::xml_node& field : fields.children(tag)) {
    const std::string_view id = field.attribute("AxisId").value();
    if ((id.empty() ? field.attribute("AxisName").value() : id) == "TwoTheta") return index;
    ++index;
  }
  return std::nullopt;
}

std::size_t CountAttribute(const pugi::xml_node& node, const char* name) {
  return static_cast<std::size_t>(std::max(node.attribute(name).as_int(), 0));
}

/// Without a view of its values a Datum is time, factor, the axes, counts.
Columns DefaultColumns(const pugi::xml_node& axes, std::size_t axis) {
  const auto all = axes.children("ScanAxisInfo");
  const auto count = static_cast<std::size_t>(std::distance(all.begin(), all.end()));
  return {.factor = 1, .two_theta = 2 + axis, .counts = 2 + count};
}

Columns FindColumns(const std::string& name, const pugi::xml_node& route, std::size_t axis) {
  Columns columns = DefaultColumns(route.child("ScanInformation").child("ScanAxes"), axis);
  const pugi::xml_node views = route.child("DataViews");
  if (views) columns.factor.reset();
  bool has_counts = false;
  for (const pugi::xml_node& view : views.children("RawDataView")) {
    const std::string_view kind = view.attribute("LogicName").value();
    const std::size_t start = CountAttribute(view, "Start");
    if (kind == "AbsorptionFactor") columns.factor = start;
    if (const pugi::xml_node varying = view.child("Varying"))
      if (const auto field = FindAxis(varying, "FieldDefinitions")) columns.two_theta = start + *field;
    const pugi::xml_node recording = view.child("Recording");
    const bool is_scan_counter = std::string_view(recording.attribute("LogicName").value()) == "ScanCounter";
    if (!recording || (has_counts && !is_scan_counter)) continue;
    if (CountAttribute(view, "Length") != 1)
      FailInFile(name, "one count to a point", std::to_string(CountAttribute(view, "Length")) + ", as in an image");
    columns.counts = start;
    has_counts = true;
  }
  return columns;
}

void TakeDatum(const std::string& name, std::string_view text, const Columns& columns, bool& is_attenuated,
               Pattern& pattern) {
  std::optional<double> angle;
  std::optional<double> count;
  std::optional<double> factor = columns.factor ? std::nullopt : std::optional(1.0);
  std::string_view rest = text;
  for (std::size_t i = 0; !rest.empty(); ++i) {
    const std::size_t end = std::min(rest.find(','), rest.size());
    const std::string_view word = TrimSpace(rest.substr(0, end));
    if (i == columns.two_theta) angle = ReadReal<double>(word);
    if (i == columns.counts) count = ReadReal<double>(word);
    if (columns.factor && i == *columns.factor) factor = ReadReal<double>(word);
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  if (!angle || !count || !factor) FailInFile(name, "2theta, factor and counts in a Datum", Quote(text));
  is_attenuated = is_attenuated || *factor != 1.0;
  pattern.two_theta.push_back(*angle);
  pattern.counts.push_back(*count * *factor);
}

void TakeWavelength(const pugi::xml_node& root, Pattern& pattern) {
  const auto number = [&](const char* tag) {
    return PositiveNumber(FindElement(root, tag).attribute("Value").value());
  };
  pattern.wavelength = number("WaveLengthAlpha1");
  pattern.wavelength_alpha2 = number("WaveLengthAlpha2");
  pattern.alpha2_ratio = number("WaveLengthRatio");
}

void TakeContainer(const ZipArchive& archive, const std::string& raw_data, Pattern& pattern) {
  const std::string entry = raw_data.substr(0, raw_data.find('/')) + "/DataContainer.xml";
  const auto text = archive.Read(entry);
  if (!text) return;
  pugi::xml_document document;
  ParseXml(archive.NameOf(entry), *text, document);
  pattern.title = FindElement(document, "MeasurementInfo").attribute("SampleName").value();
  pattern.instrument = FindElement(document, "DeviceTypeDesc").child_value();
}

void ReadRoute(const std::string& name, const pugi::xml_node& route, PatternFile& file) {
  const pugi::xml_node information = route.child("ScanInformation");
  file.pattern.scan_axis = information.attribute("VisibleName").value();
  if (file.pattern.scan_axis.empty()) file.pattern.scan_axis = information.attribute("ScanName").value();
  const auto axis = FindAxis(information.child("ScanAxes"), "ScanAxisInfo");
  if (!axis) FailInFile(name, "a scan of 2theta", Quote(file.pattern.scan_axis));
  file.pattern.step_time = PositiveNumber(information.child_value("TimePerStepEffective"));
  if (!file.pattern.step_time) file.pattern.step_time = PositiveNumber(information.child_value("TimePerStep"));
  const Columns columns = FindColumns(name, route, *axis);
  bool is_attenuated = false;
  for (const pugi::xml_node& datum : route.children("Datum"))
    TakeDatum(name, datum.child_value(), columns, is_attenuated, file.pattern);
  const auto planned = PositiveNumber(information.child_value("MeasurementPoints"));
  const auto measured = static_cast<double>(file.pattern.PointCount());
  if (planned && *planned > measured)
    file.notices.push_back("The scan was to have " + NumberText(*planned) + " points; it ended after " +
                           NumberText(measured) + ".");
  if (is_attenuated) file.notices.emplace_back("The counts were multiplied by their absorption factors.");
}

}  // namespace

bool HoldsBrml(const ZipArchive& archive) {
  return !FindRawData(archive).empty();
}

PatternFile ReadBrml(const std::string& name, const ZipArchive& archive, const PatternReadOptions& options) {
  PatternFile file;
  file.format = "BRML";
  const std::vector<std::string> scans = FindRawData(archive);
  const std::string& scan = scans[ChooseScan(name, scans.size(), options, file)];
  const std::string text = archive.Require(scan);
  pugi::xml_document document;
  ParseXml(archive.NameOf(scan), text, document);
  const pugi::xml_node root = document.document_element();
  TakeContainer(archive, scan, file.pattern);
  TakeWavelength(root, file.pattern);
  ReadRoute(archive.NameOf(scan), FindRoute(root), file);
  FinishPattern(name, file);
  return file;
}

}  // namespace talven
