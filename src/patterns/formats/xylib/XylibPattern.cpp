#include "patterns/formats/xylib/XylibPattern.h"

#include <xylib/xylib.h>

#include <algorithm>
#include <array>
#include <clocale>
#include <exception>
#include <memory>
#include <sstream>

#include "patterns/formats/FinishPattern.h"
#include "patterns/formats/FormatText.h"
#include "patterns/formats/RemarkedWavelength.h"
#include "patterns/formats/xylib/RawScanType.h"
#include "patterns/formats/xylib/ScopedCLocale.h"

namespace talven {
namespace {

constexpr std::array<const char*, 2> kBinaryKinds = {"bruker_raw", "philips_rd"};
constexpr std::array<const char*, 4> kTextKinds = {"philips_udf", "rigaku_dat", "xfit_xdd", "dbws"};

bool HasExtension(std::string_view list, std::string_view extension) {
  for (std::string_view word = NextWord(list); !word.empty(); word = NextWord(list))
    if (ToLower(word) == extension) return true;
  return false;
}

const xylib::FormatInfo* FormatOf(const char* kind) {
  return static_cast<const xylib::FormatInfo*>(xylib_get_format_by_name(kind));
}

bool Fits(const char* kind, const std::string& head) {
  const xylib::FormatInfo* const format = FormatOf(kind);
  if (format == nullptr || format->checker == nullptr) return false;
  std::istringstream stream(head);
  try {
    return xylib::check_format(format, stream, nullptr);
  } catch (const std::exception&) {
    return false;
  }
}

/// The number of a setting under any of its names, of the block first, else of the whole file.
std::optional<double> FindSetting(const xylib::DataSet& data, const xylib::Block& block,
                                  std::initializer_list<const char*> names) {
  for (const char* const name : names)
    for (const xylib::MetaData* const meta : {&block.meta, &data.meta}) {
      if (!meta->has_key(name)) continue;
      const auto number = LeadingNumber(meta->get(name));
      if (number && *number > 0.0) return number;
    }
  return std::nullopt;
}

void TakeSettings(const xylib::DataSet& data, const xylib::Block& block, Pattern& pattern) {
  const auto wavelength = FindSetting(
      data, block,
      {"ALPHA1", "USED_LAMBDA", "LabdaAlpha1", "LAMBDA_ALPHA_1", "WAVE_LENGTH1", "HW_XG_WAVE_LENGTH_ALPHA1"});
  const auto alpha2 =
      FindSetting(data, block, {"ALPHA2", "LabdaAlpha2", "LAMBDA_ALPHA_2", "WAVE_LENGTH2", "HW_XG_WAVE_LENGTH_ALPHA2"});
  if (wavelength && IsWavelength(*wavelength)) pattern.wavelength = wavelength;
  if (pattern.wavelength && alpha2 && IsWavelength(*alpha2)) pattern.wavelength_alpha2 = alpha2;
  pattern.alpha2_ratio = FindSetting(data, block, {"ALPHA_RATIO", "RatioAlpha2/1", "INTENSITY_RATIO", "RatioAlpha21"});
  pattern.step_time = FindSetting(data, block, {"TIME_PER_STEP", "ScanStepTime", "TIME_PER_STEP(s)"});
  for (const char* const name : {"SAMPLE_ID", "SampleIdent", "SAMPLE"})
    if (pattern.title.empty() && data.meta.has_key(name)) pattern.title = TrimSpace(data.meta.get(name));
}

void TakePoints(const std::string& name, const xylib::Block& block, Pattern& pattern) {
  if (block.get_column_count() < 2)
    FailInFile(name, "columns of 2theta and counts", std::to_string(block.get_column_count()));
  const xylib::Column& x = block.get_column(1);
  const xylib::Column& y = block.get_column(2);
  const int count = block.get_point_count();
  for (int i = 0; i < count; ++i) {
    pattern.two_theta.push_back(x.get_value(i));
    pattern.counts.push_back(y.get_value(i));
  }
  if (x.get_step() > 0.0) pattern.step = x.get_step();
}

}  // namespace

std::optional<std::string> FindXylibKind(std::string_view extension, const std::string& bytes) {
  constexpr std::size_t kHeadSize = 4096;
  const std::string head = bytes.substr(0, kHeadSize);
  for (const char* const kind : kBinaryKinds)
    if (Fits(kind, head)) return kind;
  for (const char* const kind : kTextKinds)
    if (HasExtension(xylib_get_format_by_name(kind)->exts, extension) && Fits(kind, head)) return kind;
  return std::nullopt;
}

PatternFile ReadXylibKind(const std::string& name, const std::string& kind, const std::string& bytes,
                          const PatternReadOptions& options) {
  PatternFile file;
  file.format = kind == "bruker_raw" ? "RAW" : xylib_get_format_by_name(kind.c_str())->desc;
  std::unique_ptr<xylib::DataSet> data;
  try {
    const ScopedCLocale locale;
    std::istringstream stream(bytes);
    // Not load_stream: it loses what it made where reading fails.
    data.reset(FormatOf(kind.c_str())->ctor());
    data->load_data(stream, "");
  } catch (const std::exception& error) {
    FailInFile(name, "a whole file of " + file.format, "another (" + std::string(error.what()) + ")");
  }
  const auto count = static_cast<std::size_t>(std::max(data->get_block_count(), 0));
  const std::size_t scan = ChooseScan(name, count, options, file);
  file.pattern.scan_axis = kind == "bruker_raw" ? RawScanType(bytes, scan).value_or("") : "";
  if (StandsStill(file.pattern.scan_axis)) FailInFile(name, "a scan of 2theta", "a scan of " + file.pattern.scan_axis);
  const xylib::Block& block = *data->get_block(static_cast<int>(scan));
  TakeSettings(*data, block, file.pattern);
  TakePoints(name, block, file.pattern);
  FinishPattern(name, file);
  return file;
}

}  // namespace talven
