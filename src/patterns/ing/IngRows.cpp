#include "patterns/ing/IngRows.h"

#include <array>

#include "textio/FreeForm.h"
#include "textio/Numbers.h"

namespace talven {
namespace {

/// 64-bit on purpose: whether and where this is rounded makes the difference between the readers.
double Steps(const IngHeader& header) {
  return (static_cast<double>(header.LastAngle) - header.FirstAngle) * (1.0 / header.Step);
}

}  // namespace

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

bool ReadIngRow(InputFile& ing, const IngRowRule& rule, IngRow& row) {
  constexpr std::string_view kExpected = "a row of 2 theta and counts";
  std::array<float, 2> values = {row.Angle, row.Intensity};
  std::string_view bad;
  const ReadStatus status = ReadReals(ing, values, &bad);
  row = {values[0], values[1]};
  if (status == ReadStatus::kEndOfFile && rule.at_end_of_file == IngRowEnd::kFatal) ing.RequireLine(kExpected);
  if (status == ReadStatus::kMalformed && rule.at_unreadable_row == IngRowEnd::kFatal) ing.Fail(kExpected, Quote(bad));
  return status == ReadStatus::kOk;
}

}  // namespace talven
