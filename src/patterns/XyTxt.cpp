#include "patterns/XyTxt.h"

#include <algorithm>
#include <array>

#include "textio/FixedText.h"
#include "textio/FreeForm.h"

namespace talven {
namespace {

constexpr float kCopperWavelength = 1.54F;
constexpr float kStepTime = 4.0F;

bool IsComment(std::string_view line) {
  return line.starts_with("REM");
}

/// The numbers of a line, of which the first 80 characters count.
IngRow ParsePoint(const TextInput& txt, std::string_view line) {
  std::array<float, 2> values{};
  ParseReals(txt, Columns(line, 1, 80), values, "X and Y (or a remark with REM in columns 1 to 3)");
  return {values[0], values[1]};
}

/// X of the first of two points that follow each other with no comment between. On purpose: a remark after the first
/// point makes the search begin again, while the rows begin with the first point all the same.
float FindFirstAngle(TextInput& txt) {
  while (true) {
    std::string_view line = txt.RequireLine("X and Y of the first point");
    if (IsComment(line)) continue;
    const float first = ParsePoint(txt, line).Angle;
    line = txt.RequireLine("X and Y of the second point");
    if (IsComment(line)) continue;
    ParsePoint(txt, line);
    return first;
  }
}

std::vector<IngRow> ReadPoints(TextInput& txt) {
  std::vector<IngRow> rows;
  std::string_view line;
  while (rows.size() < kLargestXyPointCount && txt.ReadLine(line))
    if (!IsComment(line)) rows.push_back(ParsePoint(txt, line));
  return rows;
}

float FindMaximum(const std::vector<IngRow>& rows) {
  float maximum = 0.0F;
  for (const IngRow& row : rows) maximum = std::max(maximum, row.Intensity);
  return maximum;
}

}  // namespace

IngPattern ReadXyTxt(TextInput& txt) {
  IngPattern pattern{.header = {.Wavelength = kCopperWavelength, .StepTime = kStepTime}, .rows = {}};
  pattern.header.FirstAngle = FindFirstAngle(txt);
  txt.Rewind();
  pattern.rows = ReadPoints(txt);
  pattern.header.LastAngle = pattern.rows.back().Angle;
  pattern.header.Step = FindMaximum(pattern.rows);
  pattern.header.PointCount = static_cast<std::int32_t>(pattern.rows.size());
  return pattern;
}

}  // namespace talven
