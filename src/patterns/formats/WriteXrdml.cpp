#include "patterns/formats/WriteXrdml.h"

#include "patterns/formats/FinishPattern.h"
#include "patterns/formats/FormatText.h"

namespace talven {
namespace {

constexpr std::size_t kLineLength = 1000;

std::string Escape(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '&') escaped += "&amp;";
    if (c == '<') escaped += "&lt;";
    if (c == '>') escaped += "&gt;";
    if (c != '&' && c != '<' && c != '>') escaped += c < ' ' && c >= 0 ? ' ' : c;
  }
  return escaped;
}

template <typename Text>
void WriteList(const std::vector<double>& values, const Text& text, TextOutput& output) {
  std::string line;
  for (const double value : values) {
    line.append(line.empty() ? "" : " ").append(text(value));
    if (line.size() < kLineLength) continue;
    output.WriteLine(line);
    line.clear();
  }
  if (!line.empty()) output.WriteLine(line);
}

void WriteWavelength(const Pattern& pattern, TextOutput& output) {
  const bool has_alpha2 = pattern.wavelength_alpha2.has_value();
  output.WriteLine(std::string("    <usedWavelength intended=\"") + (has_alpha2 ? "K-Alpha" : "K-Alpha 1") + "\">");
  const auto write = [&](const std::string& tag, double value) {
    output.WriteLine("      <" + tag + " unit=\"Angstrom\">" + AngleText(value) + "</" + tag + ">");
  };
  write("kAlpha1", *pattern.wavelength);
  if (has_alpha2) {
    write("kAlpha2", *pattern.wavelength_alpha2);
    output.WriteLine("      <ratioKAlpha2KAlpha1>" + NumberText(pattern.alpha2_ratio.value_or(0.5)) +
                     "</ratioKAlpha2KAlpha1>");
  }
  output.WriteLine("    </usedWavelength>");
}

void WritePositions(const Pattern& pattern, TextOutput& output) {
  output.WriteLine("        <positions axis=\"2Theta\" unit=\"deg\">");
  if (HasExactSteps(pattern)) {
    output.WriteLine("          <startPosition>" + AngleText(pattern.two_theta.front()) + "</startPosition>");
    output.WriteLine("          <endPosition>" + AngleText(pattern.two_theta.back()) + "</endPosition>");
  } else {
    output.WriteLine("          <listPositions>");
    WriteList(pattern.two_theta, AngleText, output);
    output.WriteLine("          </listPositions>");
  }
  output.WriteLine("        </positions>");
}

}  // namespace

void WriteXrdml(const Pattern& pattern, const std::string& title, TextOutput& output) {
  output.WriteLine("<?xml version=\"1.0\" encoding=\"UTF-8\"?>");
  output.WriteLine("<xrdMeasurements xmlns=\"http://www.xrdml.com/XRDMeasurement/1.5\" status=\"Completed\">");
  output.WriteLine("  <sample type=\"To be analyzed\">");
  output.WriteLine("    <id>" + Escape(title) + "</id>");
  output.WriteLine("  </sample>");
  output.WriteLine("  <xrdMeasurement measurementType=\"Scan\" status=\"Completed\">");
  WriteWavelength(pattern, output);
  output.WriteLine("    <scan appendNumber=\"0\" mode=\"Continuous\" scanAxis=\"Gonio\" status=\"Completed\">");
  output.WriteLine("      <dataPoints>");
  WritePositions(pattern, output);
  if (pattern.step_time)
    output.WriteLine("        <commonCountingTime unit=\"seconds\">" + NumberText(*pattern.step_time) +
                     "</commonCountingTime>");
  output.WriteLine("        <intensities unit=\"counts\">");
  WriteList(pattern.counts, NumberText, output);
  output.WriteLine("        </intensities>");
  output.WriteLine("      </dataPoints>");
  output.WriteLine("    </scan>");
  output.WriteLine("  </xrdMeasurement>");
  output.WriteLine("</xrdMeasurements>");
}

}  // namespace talven
