#include "patterns/AscSpectrum.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "patterns/ing/IngFile.h"
#include "textio/Numbers.h"
#include "textio/Record.h"

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

void WriteWhole(TextOutput& asc, std::int32_t value, FieldWidths widths) {
  if (const std::size_t width = GrowingWidth(value, widths); width != 0) asc.WriteLine(Record().I(value, width));
}

std::int32_t Thousandfold(float value) {
  return NearestWhole(1000.0 * value);
}

float FindMaximum(TextInput& ing, std::int32_t count) {
  float maximum = 0.0F;
  IngRow row;
  for (std::int32_t i = 0; i < count && ReadIngRow(ing, kAscRows, row); ++i) maximum = std::max(maximum, row.Intensity);
  return maximum;
}

/// Goes back to the rows. On purpose seven lines of text are passed: a head with blank lines in it is longer.
void RewindToRows(TextInput& ing) {
  ing.Rewind();
  for (int line = 1; line <= kIngHeadLines; ++line) ing.RequireLine("a line of the head");
}

}  // namespace

AscSpectrum ReadIngAsSpectrum(TextInput& ing) {
  IngHeader header = ReadIngHeader(ing);
  if (header.Step < kSmallestStep) header.Step = Store(kSmallestStep);
  const std::int32_t count = CountIngRows(kAscRows, header);
  AscSpectrum spectrum{Thousandfold(header.FirstAngle), Thousandfold(header.Step), count, {}};
  const float maximum = FindMaximum(ing, count);
  const double scale = 1.0 / maximum * 2.0;
  RewindToRows(ing);
  IngRow row;
  for (std::int32_t i = 0; i < count && ReadIngRow(ing, kAscRows, row); ++i)
    spectrum.points.push_back({Thousandfold(row.Angle), maximum > 0.0F ? Store(scale * row.Intensity) : 0.0F});
  return spectrum;
}

void WriteAscSpectrum(TextOutput& asc, const AscSpectrum& spectrum) {
  for (const std::string_view line : kHeadLines) asc.WriteLine(line);
  WriteWhole(asc, spectrum.FirstAngle, kAngleWidths);
  WriteWhole(asc, spectrum.Step, kStepWidths);
  WriteWhole(asc, spectrum.PointCount, kCountWidths);
  for (const std::string_view line : kDataHeadLines) asc.WriteLine(line);
  for (const AscSpectrum::Point& point : spectrum.points)
    if (const std::size_t width = GrowingWidth(point.X, kAngleWidths); width != 0)
      asc.WriteLine(Record().I(point.X, width).X(1).F(point.Y, 8, 6));
}

}  // namespace talven
