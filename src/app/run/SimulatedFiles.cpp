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

}  // namespace

void WriteSimulatedFile(std::string_view format, const SimulatedFileHead& head, const SimulationData& data,
                        TextOutput& output) {
  const Pattern& pattern = data.pattern;
  if (format == "ing") return WriteIngFile(pattern, output);
  if (format == "xy") return WriteXyFile(head, pattern, output);
  if (format == "sbrag") return WriteReflectionListing(data.list, output);
  if (head.is_standard)
    return WritePatternAs(*FindPatternFormat(format), pattern,
                          {std::string(head.job_name), MomentText(head.date, head.time)}, output);
  if (format == "cpi") return WriteCpiFile(head, pattern, output);
  WritePatFile(head, pattern, output);
}

}  // namespace talven
