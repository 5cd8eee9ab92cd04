#include "textio/FileNames.h"

#include <algorithm>
#include <cstdlib>
#include <system_error>

#include "textio/FatalIoError.h"

namespace talven {
namespace {

namespace fs = std::filesystem;

constexpr char ToLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}
constexpr bool IsLetter(char c) {
  return ToLower(c) >= 'a' && ToLower(c) <= 'z';
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, [](char x, char y) { return ToLower(x) == ToLower(y); });
}

/// The entry of a folder that a name means, or nothing.
std::optional<fs::path> FindEntry(const fs::path& folder, const fs::path& name) {
  std::error_code error;
  const fs::path exact = folder / name;
  if (fs::exists(exact, error)) return exact;
  const std::string wanted = FromPath(name);
  std::optional<std::string> found;
  fs::directory_iterator entries(folder.empty() ? fs::path(".") : folder, error);
  for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
    std::string entry = FromPath(entries->path().filename());
    if (EqualIgnoringCase(entry, wanted) && (!found || entry < *found)) found = std::move(entry);
  }
  if (!found) return std::nullopt;
  return folder / ToPath(*found);
}

/// The folder of a path under the spelling that exists; where a part does not exist, the rest is taken as written.
fs::path FindFolder(const fs::path& folder) {
  fs::path found = folder.root_path();
  for (const fs::path& part : folder.relative_path()) found = FindEntry(found, part).value_or(found / part);
  return found;
}

}  // namespace

fs::path ToPath(std::string_view name) {
  return fs::path(std::u8string(name.begin(), name.end()));
}

std::string FromPath(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

#ifdef _WIN32
std::optional<fs::path> NativePath(std::string_view name) {
  return ToPath(name);
}
#else
namespace {

std::optional<std::string> DataHome() {
  const char* const data_home = std::getenv("XDG_DATA_HOME");
  if (data_home != nullptr && *data_home == '/') return data_home;
  const char* const home = std::getenv("HOME");
  if (home != nullptr && *home != '\0') return std::string(home) + "/.local/share";
  return std::nullopt;
}

}  // namespace

std::optional<fs::path> NativePath(std::string_view name) {
  if (name.size() < 3 || name.substr(1, 2) != ":\\") return ToPath(name);
  const char drive = name.front() == '/' ? 'c' : ToLower(name.front());
  const auto data_home = DataHome();
  if (!IsLetter(drive) || !data_home) return std::nullopt;
  std::string path = *data_home + "/talven/drives/" + drive + std::string(name.substr(2));
  std::ranges::replace(path, '\\', '/');
  return ToPath(path);
}
#endif

std::optional<fs::path> FindExisting(std::string_view name) {
  const auto path = NativePath(name);
  if (!path) return std::nullopt;
  std::error_code error;
  if (fs::exists(*path, error)) return path;
  return FindEntry(FindFolder(path->parent_path()), path->filename());
}

std::optional<fs::path> FindForWriting(std::string_view name, Spelling spelling) {
  auto existing = spelling == Spelling::kAny ? FindExisting(name) : std::nullopt;
  if (existing) return existing;
  const auto path = NativePath(name);
  if (!path) return std::nullopt;
  return FindFolder(path->parent_path()) / path->filename();
}

namespace {

std::error_code Copy(std::string_view from, std::string_view to, Spelling spelling) {
  const auto source = FindExisting(from);
  const auto target = FindForWriting(to, spelling);
  std::error_code error = std::make_error_code(std::errc::no_such_file_or_directory);
  if (source && target) fs::copy_file(*source, *target, fs::copy_options::overwrite_existing, error);
  return error;
}

}  // namespace

bool CopyExisting(std::string_view from, std::string_view to, Spelling spelling) {
  return !Copy(from, to, spelling);
}

void CopyRequired(std::string_view from, std::string_view to, Spelling spelling) {
  if (const std::error_code error = Copy(from, to, spelling))
    throw FatalIoError(std::string(to) + ": cannot be made a copy of " + std::string(from) + ": " + error.message());
}

bool DeleteExisting(std::string_view name) {
  std::error_code error;
  const auto path = FindExisting(name);
  return path && !fs::is_directory(*path, error) && fs::remove(*path, error);
}

}  // namespace talven
