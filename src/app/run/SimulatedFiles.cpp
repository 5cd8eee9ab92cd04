#include "app/run/SimulatedFiles.h"

#include "patterns/CpiFile.h"
#include "patterns/PatFile.h"
#include "patterns/PatternFormats.h"
#include "patterns/ReflectionListing.h"
#include "patterns/XyFile.h"
#include "patterns/ing/SimulatedIng.h"

namespace talven {
namespace {

void WriteIngFile(const Pattern& pattern, TextOutput& output) {
  WriteIngTitle(pattern, output);
  WriteSimulatedIngHead(pattern, output);
  SimulatedIngRows rows(pattern);
  for (std::size_t i = 0; i < pattern.PointCount(); ++i) rows.WriteNext(output);
}

void WriteCpiFile(const SimulatedFileHead& head, const Pattern& pattern, TextOutput& output) {
  WriteCpiHead({.job_name = head.job_name, .end_value = head.end_value, .date = head.date, .time = head.time}, pattern,
               output);
  for (std::size_t i = 0; i < pattern.PointCount(); ++i) WriteCpiRow(pattern, i, output);
}

void WriteXyFile(const SimulatedFileHead& head, const Pattern& pattern, TextOutput& output) {
  if (!head.is_standard) WriteXyHead(output);
  for (std::size_t i = 0; i < pattern.PointCount(); ++i) WriteXyRow(pattern, i, output);
}

void WritePatFile(const SimulatedFileHead& head, const Pattern& pattern, TextOutput& output) {
  WritePatHead(pattern, head.end_value, output);
  WritePatRows(pattern, output);
}

/// `31-12-2024 at 12: 0: 0`.
std::string DateText(const SimulatedFileHead& head) {
  Record text;
  text.I(head.date.day, 2).A("-").I(head.date.month, 2).A("-").I(head.date.year, 4).A(" at ");
  text.I(head.time.hour, 2).A(":").I(head.time.minute, 2).A(":").I(head.time.second, 2);
  return std::string(text.Text());
}

}  // namespace

void WriteSimulatedFile(std::string_view format, const SimulatedFileHead& head, const SimulationData& data,
                        TextOutput& output) {
  const Pattern& pattern = data.pattern;
  if (format == "ing") return WriteIngFile(pattern, output);
  if (format == "xy") return WriteXyFile(head, pattern, output);
  if (format == "sbrag") return WriteReflectionListing(data.list, output);
  if (head.is_standard)
    return WritePatternAs(*FindPatternFormat(format), pattern, {std::string(head.job_name), DateText(head)}, output);
  if (format == "cpi") return WriteCpiFile(head, pattern, output);
  WritePatFile(head, pattern, output);
}

}  // namespace talven
