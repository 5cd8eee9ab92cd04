#include "ui/CommandLookup.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

#include "textio/FixedText.h"
#include "textio/Folder.h"

namespace talven {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSuffix = ".exe";
#ifdef _WIN32
constexpr std::string_view kOwnSuffix = ".exe";
#else
constexpr std::string_view kOwnSuffix;
#endif

struct Companion {
  std::string_view in_place_of;
  std::string_view name;
  bool takes_job_only = false;
  bool needs_display = false;
};
constexpr std::array<Companion, 2> kCompanions = {
    {{"kvrl97.exe", "talven-fcalc"},
     {.in_place_of = "kestra.exe", .name = "talven-view", .takes_job_only = true, .needs_display = true}}};

bool IsFile(const fs::path& path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  return fs::exists(status) && !fs::is_directory(status);
}

/// The program under the name as it is composed.
std::optional<std::string> FindProgram(std::string_view name, std::vector<std::string>& looked_at) {
  while (true) {
    auto path = Folder().Find(name);
    const bool is_found = path && IsFile(*path);
    if (!path) path = Folder().PathOf(name);
    if (path) looked_at.push_back(FromPath(*path));
    if (is_found) return looked_at.back();
    if (!name.ends_with(kSuffix)) return std::nullopt;
    name.remove_suffix(kSuffix.size());
  }
}

std::optional<std::string> FindCompanion(std::string_view name, std::string_view own_path,
                                         std::vector<std::string>& looked_at) {
  const fs::path folder = ToPath(own_path).parent_path();
  if (folder.empty()) return std::nullopt;
  const fs::path file = ToPath(std::string(name).append(kOwnSuffix));
  for (const fs::path& each : {folder / file, folder.parent_path() / "libexec" / "talven" / file}) {
    looked_at.push_back(FromPath(each));
    if (IsFile(each)) return looked_at.back();
  }
  return std::nullopt;
}

/// Arguments up to the end of the first, the blank in front included.
std::string_view FirstArgument(std::string_view arguments) {
  const std::size_t begin = arguments.find_first_not_of(' ');
  if (begin == std::string_view::npos) return {};
  return arguments.substr(0, arguments.find(' ', begin));
}

}  // namespace

CommandLookup LookUpCommand(std::string_view command, std::string_view own_path) {
  const std::string_view name = command.substr(0, command.find(' '));
  const std::string_view arguments = command.substr(name.size());
  CommandLookup result;
  if (auto program = FindProgram(name, result.looked_at)) {
    result.command = Command{*std::move(program), std::string(arguments)};
    return result;
  }
  const std::string_view file_name = name.substr(name.find_last_of("\\/") + 1);
  const auto* const companion = std::find_if(kCompanions.begin(), kCompanions.end(),
                                             [&](const Companion& each) { return file_name == each.in_place_of; });
  if (companion == kCompanions.end()) return result;
  auto program = FindCompanion(companion->name, own_path, result.looked_at);
  if (!program) return result;
  result.is_companion = true;
  result.needs_display = companion->needs_display;
  result.command =
      Command{*std::move(program), std::string(companion->takes_job_only ? FirstArgument(arguments) : arguments)};
  return result;
}

}  // namespace talven
