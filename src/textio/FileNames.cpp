#include "textio/FileNames.h"

#include <algorithm>
#include <system_error>

#include "textio/FatalIoError.h"

namespace talven {
namespace {

namespace fs = std::filesystem;

constexpr char ToLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
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
  return source && target ? CopyPath(*source, *target) : std::make_error_code(std::errc::no_such_file_or_directory);
}

}  // namespace

bool CopyExisting(std::string_view from, std::string_view to, Spelling spelling) {
  return !Copy(from, to, spelling);
}

void CopyRequired(std::string_view from, std::string_view to, Spelling spelling) {
  if (const std::error_code error = Copy(from, to, spelling))
    throw FatalIoError(std::string(to) + ": cannot be made a copy of " + std::string(from) + ": " +
                       error.default_error_condition().message());
}

bool DeleteExisting(std::string_view name) {
  std::error_code error;
  const auto path = FindExisting(name);
  return path && !fs::is_directory(*path, error) && RemovePath(*path);
}

}  // namespace talven
