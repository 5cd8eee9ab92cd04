#include "handlers/PeakFileSelector.h"

#include <string>
#include <utility>

namespace talven {
namespace {

constexpr std::int32_t kLongestStem = 20;

/// The last columns of a path that hold a separator and a point, 0 for none, and whether it holds a blank.
struct PathScan {
  std::int32_t last_slash = 0;
  std::int32_t last_point = 0;
  bool has_blank = false;
};

PathScan ScanPath(std::string_view path) {
  PathScan scan;
  std::int32_t column = 0;
  for (const char c : path) {
    ++column;
    if (c == '\\' || c == '/') scan.last_slash = column;
    if (c == '.') scan.last_point = column;
    if (c == ' ') scan.has_blank = true;
  }
  return scan;
}

/// A path without control characters and trailing blanks. It may be longer than a line.
std::string CleanPath(std::string path) {
  for (char& c : path)
    if (static_cast<unsigned char>(c) < ' ') c = ' ';
  path.resize(TrimRight(path).size());
  return path;
}

}  // namespace

void PeakFileSelector::SelectPeakFile(Ui& ui, std::string_view title, FileStem& stem, std::int32_t& stem_length,
                                      std::int32_t& status) {
  const FixedText<40> shown_title(title);
  while (true) {
    std::string path = "*.LST";
    ui.toolkit.WSelectFile("Kestra File LST|", kKeepDirectory, path, shown_title.View());
    if (ui.toolkit.WDialogQuery(kOutcomeQuery) == 0) {
      status = kPeakFileCancelled;
      return;
    }
    path = CleanPath(std::move(path));
    const PathScan scan = ScanPath(path);
    if (scan.has_blank) {
      ui.toolkit.WMessageBox(
          {.icon = MessageIcon::kInformation, .text = "Spaces not allowed in Folder Names", .title = " "});
      continue;
    }
    const auto length = static_cast<std::int32_t>(path.size());
    const std::int32_t name_end = (scan.last_point == 0 ? length + 1 : scan.last_point) - 1;
    if (scan.last_slash != 0) name_start_ = scan.last_slash + 1;
    if (name_end <= 0) continue;

    stem = "";
    const std::int32_t name_length = name_end - name_start_ + 1;
    if (name_length > kLongestStem) {
      status = kPeakFileNameTooLong;
      return;
    }
    stem = Columns(path, static_cast<std::size_t>(name_start_), static_cast<std::size_t>(name_end));
    stem_length = name_length;
    if (status == kClearAfterSelection) ui.toolkit.WGrAreaClear();
    return;
  }
}

}  // namespace talven
