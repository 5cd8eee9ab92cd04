#include "patterns/formats/UxdPattern.h"

#include <algorithm>
#include <string>

#include "patterns/formats/FinishPattern.h"
#include "patterns/formats/FormatText.h"
#include "textio/FieldInput.h"

namespace talven {
namespace {

constexpr std::size_t kHeadLines = 100;

/// "_NAME=VALUE" with the name in lower case, and the value without quotes.
struct Setting {
  std::string name;
  std::string_view value;
};

Setting SplitSetting(std::string_view line) {
  const std::size_t sign = std::min(line.find('='), line.size());
  std::string_view value = TrimSpace(line.substr(std::min(sign + 1, line.size())));
  if (value.size() > 1 && value.front() == '\'' && value.back() == '\'') value = value.substr(1, value.size() - 2);
  return {ToLower(TrimSpace(line.substr(0, sign))), value};
}

bool BeginsPoints(std::string_view name) {
  return name == "_counts" || name == "_cps" || name.starts_with("_2thetacounts") || name.starts_with("_2thetacps");
}

std::size_t CountRanges(TextInput& uxd) {
  std::size_t count = 0;
  for (std::string_view line; uxd.ReadLine(line);)
    if (line.starts_with('_') && BeginsPoints(SplitSetting(line).name)) ++count;
  uxd.Rewind();
  return count;
}

/// What is known of the range at hand.
struct Range {
  std::string drive;
  std::optional<double> start;
  std::optional<double> two_theta;
  std::optional<double> step;
  std::optional<double> point_count;
};

class UxdReader {
 public:
  UxdReader(TextInput& uxd, const PatternReadOptions& options) : uxd_(uxd) {
    file_.format = "UXD";
    scan_ = ChooseScan(uxd.Name(), CountRanges(uxd), options, file_);
  }

  PatternFile Read() {
    std::size_t ranges = 0;
    ReservePoints(uxd_.Content().size() / 2, file_.pattern);
    for (;;) {
      const std::string_view line = uxd_.RequireLine("a range of points");
      if (!line.starts_with('_')) continue;
      const Setting setting = SplitSetting(line);
      if (!BeginsPoints(setting.name)) {
        TakeSetting(setting);
      } else if (ranges++ == scan_) {
        ReadPoints(setting.name);
        break;
      }
    }
    FinishPattern(uxd_.Name(), file_);
    return std::move(file_);
  }

 private:
  void TakeSetting(const Setting& setting) {
    const auto number = ReadReal<double>(setting.value);
    Pattern& pattern = file_.pattern;
    if (setting.name == "_drive")
      range_ = {.drive = ToLower(setting.value), .start = {}, .two_theta = {}, .step = {}, .point_count = {}};
    if (setting.name == "_sample") pattern.title = setting.value;
    if (setting.name == "_start") range_.start = number;
    if (setting.name == "_2theta") range_.two_theta = number;
    if (setting.name == "_stepsize") range_.step = number;
    if (setting.name == "_stepcount") range_.point_count = number;
    if (!number || *number <= 0.0) return;
    if (setting.name == "_steptime") pattern.step_time = number;
    if (setting.name == "_wl1") pattern.wavelength = number;
    if (setting.name == "_wl2") pattern.wavelength_alpha2 = number;
    if (setting.name == "_wlratio") pattern.alpha2_ratio = number;
  }

  void ReadPoints(const std::string& kind) {
    const std::string& drive = range_.drive;
    if (!drive.empty() && drive != "coupled" && drive != "2theta" && drive != "unlockedcoupled")
      uxd_.Fail("a scan of 2theta", "a scan of " + drive);
    file_.pattern.scan_axis = drive == "coupled" ? "2Theta/Theta" : "2Theta";
    const bool has_angles = kind.starts_with("_2theta");
    std::string_view line;
    while (uxd_.ReadLine(line)) {
      const std::string_view text = TrimSpace(line);
      if (text.starts_with('_')) break;
      if (text.empty() || text.starts_with(';')) continue;
      if (has_angles) {
        TakeRow(text);
      } else {
        TakeCounts(text);
      }
    }
    NoticeCutText(uxd_.Content(), file_);
    CheckCount();
    if (!has_angles) SetAngles();
  }

  void CheckCount() {
    const std::size_t count = file_.pattern.PointCount();
    if (!range_.point_count || *range_.point_count == static_cast<double>(count)) return;
    const std::string told = NumberText(*range_.point_count);
    if (*range_.point_count > static_cast<double>(count))
      FailInFile(uxd_.Name(), told + " points, as _STEPCOUNT tells", std::to_string(count));
    file_.notices.push_back("_STEPCOUNT tells of " + told + " points; the " + std::to_string(count) +
                            " counts were taken.");
  }

  void TakeRow(std::string_view text) {
    std::string_view rest = text;
    const auto angle = ReadReal<double>(NextWord(rest));
    const auto count = ReadReal<double>(NextWord(rest));
    if (!angle || !count) uxd_.Fail("2theta and counts", Quote(text));
    file_.pattern.two_theta.push_back(*angle);
    file_.pattern.counts.push_back(*count);
  }

  void TakeCounts(std::string_view text) {
    for (std::string_view word = NextWord(text); !word.empty(); word = NextWord(text)) {
      if (word.ends_with(',')) word.remove_suffix(1);
      const auto count = ReadReal<double>(word);
      if (!count) uxd_.Fail("a count", Quote(word));
      file_.pattern.counts.push_back(*count);
    }
  }

  /// _START is the angle that the drive begins at: 2theta, as all drives that are read move it.
  void SetAngles() {
    const auto first = range_.start ? range_.start : range_.two_theta;
    if (!first) FailInFile(uxd_.Name(), "_START or _2THETA ahead of the counts", "neither");
    if (!range_.step) FailInFile(uxd_.Name(), "_STEPSIZE ahead of the counts", "none");
    SetEvenAngles(uxd_.Name(), *first, *range_.step, file_.pattern);
  }

  TextInput& uxd_;
  PatternFile file_;
  std::size_t scan_ = 0;
  Range range_;
};

}  // namespace

bool LooksLikeUxd(std::string_view text) {
  const std::vector<std::string_view> lines = FirstLines(text, kHeadLines);
  return std::ranges::any_of(lines, [](std::string_view line) {
    const std::string name = line.starts_with('_') ? SplitSetting(line).name : "";
    return name == "_drive" || name == "_fileversion";
  });
}

PatternFile ReadUxd(TextInput& uxd, const PatternReadOptions& options) {
  return UxdReader(uxd, options).Read();
}

}  // namespace talven
