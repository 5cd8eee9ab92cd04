#include "simulation/SimulationOutputs.h"

#include <algorithm>
#include <string>

#include "textio/FixedText.h"
#include "textio/FreeForm.h"
#include "textio/Numbers.h"

namespace talven {
namespace {

constexpr float kFloor = 2.0F;
constexpr std::int32_t kStepTime = 1000;
constexpr std::int32_t kPatColumns = 10;
constexpr std::int32_t kCpiLimit = 100'000'000;

std::int32_t IntegerIntensity(float intensity) {
  return Truncate(static_cast<double>(intensity) + 0.5);
}

/// Writes a text at its trimmed width.
void WriteTrimmed(OutputFile& file, LineBuffer& line, std::string_view text) {
  line = text;
  file.WriteLine(line.TrimmedLine());
}

/// Writes a number without the blanks ahead of it.
void WriteLeftJustified(OutputFile& file, LineBuffer& line, const Record& number) {
  WriteTrimmed(file, line, Trim(number.Text()));
}

void WriteFreeFormText(OutputFile& file, std::string_view text) {
  FreeFormLine(file).Text(text).End();
}

void WriteCpiHead(const PatternHead& head, float start_value, float end_value, LineBuffer& line, OutputFile& cpi) {
  WriteFreeFormText(cpi, "SIETRONICS");
  WriteLeftJustified(cpi, line, Record().F(start_value, 8, 3));
  WriteLeftJustified(cpi, line, Record().F(end_value, 8, 3));
  WriteLeftJustified(cpi, line, Record().F(head.Step, 8, 3));
  WriteFreeFormText(cpi, "Xx");
  WriteLeftJustified(cpi, line, Record().F(head.Wavelength, 9, 6));
  Record moment;
  moment.I(head.date.day, 2).A("-").I(head.date.month, 2).A("-").I(head.date.year, 4).A(" at ");
  moment.I(head.time.hour, 2).A(":").I(head.time.minute, 2).A(":").I(head.time.second, 2);
  cpi.WriteLine(moment);
  WriteFreeFormText(cpi, "1");
  FreeFormLine(cpi).Text(head.TrimmedJobName).Text(" from shelx HKL using Talven").End();
  WriteFreeFormText(cpi, "SCANDATA");
}

void WritePatHead(const PatternHead& head, float start_value, float end_value, OutputFile& pat) {
  WriteFreeFormText(pat, "Mirade/Talven Shelx HKL to RIET7 DAT");
  for (int line = 2; line <= 4; ++line) WriteFreeFormText(pat, " ");
  pat.WriteLine(Record().F(start_value, 8, 3).F(head.Step, 8, 3).F(end_value, 8, 3));
}

void WriteIngHead(const PatternHead& head, const PatternGrid& grid, OutputFile& ing) {
  ing.WriteLine(Record().X(1).F(head.Wavelength, 10, 6));
  ing.WriteLine(Record().X(1).F(grid.GridAngle[1], 10, 3));
  ing.WriteLine(Record().X(1).F(grid.GridAngle[grid.PointCount], 10, 3));
  ing.WriteLine(Record().X(1).F(head.Step, 10, 3));
  ing.WriteLine(Record().X(1).I(kStepTime, 5));
  ing.WriteLine(Record().X(1).I(grid.PointCount, 5));
}

/// The integer in as many columns as it needs; nothing from nine digits on.
void WriteCpiRow(std::int32_t intensity, OutputFile& cpi) {
  if (intensity < kCpiLimit) cpi.WriteLine(std::to_string(intensity));
}

void WriteIngRow(const ReflectionList& list, const PatternGrid& grid, std::int32_t point, OutputFile& ing) {
  Record row;
  row.X(1).F(grid.GridAngle[point], 8, 2).X(3).F(grid.Profile[point], 10, 0);
  if (const std::int32_t j = grid.BinReflection[point]; j != 0)
    row.X(2).I(list.H[j], 4).I(list.K[j], 4).I(list.L[j], 4);
  ing.WriteLine(row);
}

}  // namespace

float WriteReflectionList(const ReflectionList& list, OutputFile& file) {
  float highest = 0.0F;
  for (std::int32_t j = 1; j <= list.ReflectionCount; ++j) {
    highest = std::max(highest, list.TwoTheta[j]);
    Record row;
    row.X(1).I(list.H[j], 4).I(list.K[j], 4).I(list.L[j], 4).F(list.TwoTheta[j], 10, 2).F(list.F2[j], 11, 2);
    file.WriteLine(row);
  }
  return highest;
}

void WriteHeads(const PatternHead& head, const PatternGrid& grid, LineBuffer& line, PatternFiles& files) {
  const std::string title = std::string(head.TrimmedJobName) + " (Talven)";
  const auto start_value = static_cast<float>(title.size());
  const auto end_value = static_cast<float>(grid.TopAngle);
  WriteTrimmed(files.ing, line, title);
  WriteCpiHead(head, start_value, end_value, line, files.cpi);
  WritePatHead(head, start_value, end_value, files.pat);
  WriteFreeFormText(files.xy, "REM Mirade/Talven Shelx HKL to powder XY");
}

void WriteRows(const PatternHead& head, const ReflectionList& list, PatternGrid& grid, PatternFiles& files) {
  WriteIngHead(head, grid, files.ing);
  for (std::int32_t i = 1; i <= grid.PointCount; ++i) {
    grid.Profile[i] = std::max(grid.Profile[i], kFloor);
    WriteCpiRow(IntegerIntensity(grid.Profile[i]), files.cpi);
    files.xy.WriteLine(Record().X(1).G(grid.GridAngle[i]).G(grid.Profile[i]));
    WriteIngRow(list, grid, i, files.ing);
  }
  for (std::int32_t first = 1; first + kPatColumns - 1 <= grid.PointCount; first += kPatColumns) {
    Record row;
    for (std::int32_t i = first; i < first + kPatColumns; ++i) row.I(IntegerIntensity(grid.Profile[i]), 8);
    files.pat.WriteLine(row);
  }
}

}  // namespace talven
