#include "patterns/IngToAsc.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "patterns/JobInput.h"
#include "patterns/ing/IngHeader.h"
#include "patterns/ing/IngRows.h"
#include "textio/Numbers.h"
#include "textio/OutputFile.h"

namespace talven {
namespace {

constexpr std::array<std::string_view, 29> kHeadLines = {
    "PE IR                   SPECTRUM    ASCII",
    "  -1",
    "10746P~1.ASC",
    "talven",
    "4.0",
    "30",
    "SPECTRUM ONE,CPU32 MAIN 00.02.3000",
    "INGAAS",
    "NIR",
    "CAF2",
    "55562",
    "1.000000",
    "8.000000",
    "STRONG",
    "RATIO",
    "SPECTRUM",
    "MAGNITUDE",
    "REFLECTANCE",
    "DOUBLE",
    "COMBINED",
    "0",
    "#HDR",
    " 1",
    " 1",
    "#GR",
    "nm",
    "A",
    "0.00000011920928955078",
    "0.0",
};
constexpr std::array<std::string_view, 4> kDataHeadLines = {"8", "10000", "50", "#DATA"};
constexpr double kSmallestStep = 0.01;
constexpr int kIngHeadLines = 7;

/// The narrowest and the widest field of a whole number.
struct FieldWidths {
  std::size_t first;
  std::size_t last;
};
constexpr FieldWidths kAngleWidths{3, 6};
constexpr FieldWidths kStepWidths{2, 4};
constexpr FieldWidths kCountWidths{2, 5};

/// Width of the first field whose bound, a power of ten, lies above the value; 0 beyond the last. On purpose the sign
/// does not count, so that a negative value may give asterisks.
std::size_t GrowingWidth(std::int32_t value, FieldWidths widths) {
  std::size_t digits = 1;
  for (std::int32_t rest = value; rest >= 10; rest /= 10) ++digits;
  return digits > widths.last ? 0 : std::max(digits, widths.first);
}

void WriteWhole(OutputFile& asc, std::int32_t value, FieldWidths widths) {
  if (const std::size_t width = GrowingWidth(value, widths); width != 0) asc.WriteLine(Record().I(value, width));
}

std::int32_t Thousandfold(float value) {
  return NearestWhole(1000.0 * value);
}

void WriteHead(OutputFile& asc, const IngHeader& header, std::int32_t count) {
  for (const std::string_view line : kHeadLines) asc.WriteLine(line);
  WriteWhole(asc, Thousandfold(header.FirstAngle), kAngleWidths);
  WriteWhole(asc, Thousandfold(header.Step), kStepWidths);
  WriteWhole(asc, count, kCountWidths);
  for (const std::string_view line : kDataHeadLines) asc.WriteLine(line);
}

float FindMaximum(InputFile& ing, std::int32_t count) {
  float maximum = 0.0F;
  IngRow row;
  for (std::int32_t i = 0; i < count && ReadIngRow(ing, kAscRows, row); ++i) maximum = std::max(maximum, row.Intensity);
  return maximum;
}

/// Goes back to the rows. On purpose seven lines of text are passed: a head with blank lines in it is longer.
void RewindToRows(InputFile& ing) {
  ing.Rewind();
  for (int line = 1; line <= kIngHeadLines; ++line) ing.RequireLine("a line of the head");
}

void WriteRows(InputFile& ing, std::int32_t count, float maximum, OutputFile& asc) {
  const double scale = 1.0 / maximum * 2.0;
  IngRow row;
  for (std::int32_t i = 0; i < count && ReadIngRow(ing, kAscRows, row); ++i) {
    const std::int32_t x = Thousandfold(row.Angle);
    const float y = maximum > 0.0F ? Store(scale * row.Intensity) : 0.0F;
    const std::size_t width = GrowingWidth(x, kAngleWidths);
    if (width != 0) asc.WriteLine(Record().I(x, width).X(1).F(y, 8, 6));
  }
}

}  // namespace

void IngToAsc(Ui& ui, RunState& run) {
  InputFile ing;
  if (!OpenJobInput(ui, run, ".ING", ing)) return;
  OutputFile asc;
  asc.Open(Folder(), run.JobFile(".ASC"));
  IngHeader header = ReadIngHeader(ing);
  if (header.Step < kSmallestStep) header.Step = Store(kSmallestStep);
  const std::int32_t count = CountIngRows(kAscRows, header);
  WriteHead(asc, header, count);
  const float maximum = FindMaximum(ing, count);
  RewindToRows(ing);
  WriteRows(ing, count, maximum, asc);
  asc.Close();
  ui.ShowLine("");
  ui.ShowLine(run.JobFile(".ASC written"));
}

}  // namespace talven
