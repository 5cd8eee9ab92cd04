#include "patterns/SmallCif.h"

#include <algorithm>
#include <string>

#include "textio/FixedText.h"
#include "textio/FreeForm.h"
#include "textio/Numbers.h"

namespace talven {
namespace {

struct DataName {
  std::string_view name;
  float IngHeader::*value;
};

constexpr std::array<DataName, 5> kDataNames = {{
    {"_diffraction_radiation_wavelength", &IngHeader::Wavelength},
    {"_pd_meas_2theta_range_min", &IngHeader::FirstAngle},
    {"_pd_meas_2theta_range_max", &IngHeader::LastAngle},
    {"_pd_meas_2theta_range_inc", &IngHeader::Step},
    {"_pd_meas_step_count_time", &IngHeader::StepTime},
}};

void ReadDataNames(const TextInput& cif, Text80 line, SmallCifNames& names) {
  for (std::size_t i = 0; i < kDataNames.size(); ++i) {
    const DataName& wanted = kDataNames[i];
    if (!line.StartsWith(wanted.name)) continue;
    line.BlankFirst(wanted.name.size());
    ParseReals(cif, line.View(), std::span(&(names.header.*wanted.value), 1), "after " + std::string(wanted.name));
    names.seen[i] = true;
  }
}

/// Reads lines until all five names have been seen. False if the file ends before.
bool FindDataNames(TextInput& cif, SmallCifNames& names) {
  std::string_view line;
  while (cif.ReadLine(line)) {
    ReadDataNames(cif, line, names);
    if (std::ranges::all_of(names.seen, [](bool seen) { return seen; })) return true;
  }
  return false;
}

/// True if the next two lines are the head of the loop; the second is not read after a wrong first one.
bool ReadLoopHead(TextInput& cif) {
  return cif.RequireLine("loop_").starts_with("loop_") &&
         cif.RequireLine("_pd_meas_counts_total").starts_with("    _pd_meas_counts_total");
}

/// The next count; false at the end of the file.
bool ReadCount(TextInput& cif, float& count) {
  std::string_view bad;
  const ReadStatus status = ReadReals(cif, std::span(&count, 1), &bad);
  if (status == ReadStatus::kMalformed) cif.Fail("a count", Quote(bad));
  return status == ReadStatus::kOk;
}

void ReadLoop(TextInput& cif, const IngHeader& header, std::vector<IngRow>& rows) {
  const auto count = static_cast<std::size_t>(std::max(header.PointCount, 0));
  rows.reserve(std::min(count, cif.Content().size() / 2));
  IngRow row{.Angle = Store(static_cast<double>(header.FirstAngle) - header.Step)};
  while (rows.size() < count && ReadCount(cif, row.Intensity)) {
    row.Angle = Store(static_cast<double>(row.Angle) + header.Step);
    rows.push_back(row);
  }
}

}  // namespace

SmallCif ReadSmallCif(TextInput& cif, SmallCifNames& names) {
  SmallCif read;
  try {
    if (!FindDataNames(cif, names)) return read;
    names.header.PointCount = CountCutSteps(names.header);
    read.header = names.header;
    if (ReadLoopHead(cif)) ReadLoop(cif, *read.header, read.rows);
  } catch (const FatalIoError& error) {
    read.error = error;
  }
  return read;
}

void WriteSmallCif(TextOutput& cif, const IngHeader& header, std::span<const IngRow> rows) {
  // On purpose: the blanks after the names are uneven.
  cif.WriteLine(Record().A("_diffraction_radiation_wavelength").F(header.Wavelength, 7, 4));
  cif.WriteLine(Record().A("_pd_meas_2theta_range_min").X(5).F(header.FirstAngle, 10, 4));
  cif.WriteLine(Record().A("_pd_meas_2theta_range_max").X(6).F(header.LastAngle, 10, 4));
  cif.WriteLine(Record().A("_pd_meas_2theta_range_inc").X(5).F(header.Step, 10, 4));
  cif.WriteLine(Record().A("_pd_meas_step_count_time").X(6).F(header.StepTime, 10, 4));
  cif.WriteLine("loop_");
  cif.WriteLine("    _pd_meas_counts_total");
  for (const IngRow& row : rows) cif.WriteLine(Record().X(3).F(row.Intensity, 16, 0));
}

}  // namespace talven
