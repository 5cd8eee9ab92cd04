#include "patterns/ing/IngFile.h"

#include <algorithm>
#include <array>

#include "textio/FreeForm.h"
#include "textio/Numbers.h"

namespace talven {
namespace {

constexpr std::size_t kShortestRow = 4;

/// 64-bit on purpose: whether and where this is rounded makes the difference between the readers.
double Steps(const IngHeader& header) {
  return (static_cast<double>(header.LastAngle) - header.FirstAngle) * (1.0 / header.Step);
}

}  // namespace

IngHeader ReadIngHeader(TextInput& ing) {
  IngHeader header;
  const auto read = [&ing](float& value, std::string_view what) { RequireReals(ing, std::span(&value, 1), what); };
  ing.RequireLine("a title");
  read(header.Wavelength, "a wavelength");
  read(header.FirstAngle, "the first 2 theta");
  read(header.LastAngle, "the last 2 theta");
  read(header.Step, "a step size");
  read(header.StepTime, "a step time");
  header.PointCount = RequireWholeNumber(ing, "a number of points");
  return header;
}

std::int32_t CountCutSteps(const IngHeader& header) {
  return Truncate(Steps(header));
}

std::int32_t CountIngRows(const IngRowRule& rule, const IngHeader& header) {
  switch (rule.count) {
    case IngRowCount::kAsWritten:
      return header.PointCount;
    case IngRowCount::kCutSteps:
      return CountCutSteps(header);
    case IngRowCount::kNearestSteps:
      return NearestWhole(Store(Steps(header)));
  }
  return 0;
}

bool ReadIngRow(TextInput& ing, const IngRowRule& rule, IngRow& row) {
  constexpr std::string_view kExpected = "a row of 2 theta and counts";
  std::array<float, 2> values = {row.Angle, row.Intensity};
  std::string_view bad;
  const ReadStatus status = ReadReals(ing, values, &bad);
  row = {values[0], values[1]};
  if (status == ReadStatus::kEndOfFile && rule.at_end_of_file == IngRowEnd::kFatal) ing.RequireLine(kExpected);
  if (status == ReadStatus::kMalformed && rule.at_unreadable_row == IngRowEnd::kFatal) ing.Fail(kExpected, Quote(bad));
  return status == ReadStatus::kOk;
}

IngRows ReadIngRows(TextInput& ing, const IngRowRule& rule, const IngHeader& header) {
  IngRows read;
  const auto count = static_cast<std::size_t>(std::max(CountIngRows(rule, header), 0));
  read.rows.reserve(std::min(count, ing.Content().size() / kShortestRow));
  try {
    for (IngRow row; read.rows.size() < count && ReadIngRow(ing, rule, row);) read.rows.push_back(row);
  } catch (const FatalIoError& error) {
    read.error = error;
  }
  return read;
}

void WriteIng(TextOutput& ing, std::string_view job_name, const IngPattern& pattern) {
  const IngHeader& header = pattern.header;
  ing.WriteLine(Record().X(3).A(job_name));
  ing.WriteLine(Record().X(3).F(header.Wavelength, 8, 4));
  for (const float value : {header.FirstAngle, header.LastAngle, header.Step})
    ing.WriteLine(Record().X(3).F(value, 12, 3));
  ing.WriteLine(Record().X(3).F(header.StepTime, 12, 0));
  ing.WriteLine(Record().X(3).I(header.PointCount, 10));
  for (const IngRow& row : pattern.rows) ing.WriteLine(Record().X(1).F(row.Angle, 8, 2).X(3).F(row.Intensity, 10, 0));
}

void WriteIngOfCif(TextOutput& ing, std::string_view title, const std::optional<IngHeader>& header,
                   std::span<const IngRow> rows) {
  ing.WriteLine(title);
  if (!header) return;
  for (const float value : {header->Wavelength, header->FirstAngle, header->LastAngle, header->Step, header->StepTime})
    ing.WriteLine(Record().X(3).F(value, 10, 4));
  ing.WriteLine(Record().X(3).I(header->PointCount, 14));
  for (const IngRow& row : rows) ing.WriteLine(Record().X(3).F(row.Angle, 10, 3).F(row.Intensity, 12, 0));
}

}  // namespace talven
