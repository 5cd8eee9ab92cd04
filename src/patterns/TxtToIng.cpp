#include "patterns/TxtToIng.h"

#include <algorithm>
#include <array>

#include "patterns/JobInput.h"
#include "patterns/ing/IngLayout.h"
#include "textio/FixedText.h"
#include "textio/FreeForm.h"
#include "textio/OutputFile.h"

namespace talven {
namespace {

constexpr float kCopperWavelength = 1.54F;
constexpr float kStepTime = 4.0F;

struct XyPoint {
  float X = 0.0F;
  float Y = 0.0F;
};

bool IsComment(std::string_view line) {
  return line.starts_with("REM");
}

/// The numbers of a line, of which the first 80 characters count.
XyPoint ParsePoint(const InputFile& txt, std::string_view line) {
  std::array<float, 2> values{};
  ParseReals(txt, Columns(line, 1, 80), values, "X and Y (or a remark with REM in columns 1 to 3)");
  return {values[0], values[1]};
}

/// X of the first of two points that follow each other with no comment between. On purpose: a remark behind the first
/// point makes the search begin again, while the rows begin with the first point all the same.
float FindFirstAngle(InputFile& txt) {
  while (true) {
    std::string_view line = txt.RequireLine("X and Y of the first point");
    if (IsComment(line)) continue;
    const float first = ParsePoint(txt, line).X;
    line = txt.RequireLine("X and Y of the second point");
    if (IsComment(line)) continue;
    ParsePoint(txt, line);
    return first;
  }
}

/// Reads all points and gives their number.
std::int32_t ReadPoints(InputFile& txt, TxtToIngData& data) {
  std::int32_t count = 0;
  std::string_view line;
  while (count < kLargestXyPointCount && txt.ReadLine(line)) {
    if (IsComment(line)) continue;
    const XyPoint point = ParsePoint(txt, line);
    ++count;
    data.X[count] = point.X;
    data.Y[count] = point.Y;
  }
  return count;
}

/// The largest Y, but at least 0.
float FindMaximum(const TxtToIngData& data, std::int32_t count) {
  float maximum = 0.0F;
  for (std::int32_t i = 1; i <= count; ++i) maximum = std::max(maximum, data.Y[i]);
  return maximum;
}

}  // namespace

void TxtToIng(Ui& ui, RunState& run, TxtToIngData& data) {
  ui.toolkit.WMessageBox({.icon = MessageIcon::kInformation,
                          .text = "The XY file should be a DOS TXT file with\r"
                                  "no blank lines. Lines starting with REM are\r"
                                  "ignored.\r"
                                  "Each XY line should be just X and Y in free format",
                          .title = " "});
  ui.ShowLine(run.JobFile(".TXT"));
  InputFile txt;
  if (!OpenJobInput(ui, run, ".TXT", txt)) return;
  OutputFile ing;
  ing.Open(Folder(), run.JobFile(".ING"));
  IngHeader header{.Wavelength = kCopperWavelength, .FirstAngle = FindFirstAngle(txt), .StepTime = kStepTime};
  txt.Rewind();
  header.PointCount = ReadPoints(txt, data);
  header.LastAngle = data.X[header.PointCount];
  header.Step = FindMaximum(data, header.PointCount);  // On purpose: the head gives the highest Y for the step.
  WriteIngHeader(ing, run.JobName.View(), header);
  for (std::int32_t i = 1; i <= header.PointCount; ++i) WriteIngRow(ing, data.X[i], data.Y[i]);
  ui.ShowLine("");
  ui.ShowLine(run.JobFile(".ING written"));
  ing.Close();
}

}  // namespace talven
