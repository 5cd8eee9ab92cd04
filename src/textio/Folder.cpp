#include "textio/Folder.h"

#include <string>
#include <system_error>

#include "textio/FatalIoError.h"
#include "textio/LetterCase.h"

namespace talven {
namespace {

namespace fs = std::filesystem;

/// The entry of a directory that a name means, or nothing.
std::optional<fs::path> FindEntry(const fs::path& directory, const fs::path& name) {
  std::error_code error;
  const fs::path exact = directory / name;
  if (fs::exists(exact, error)) return exact;
  const std::string wanted = FromPath(name);
  std::optional<std::string> found;
  fs::directory_iterator entries(directory.empty() ? fs::path(".") : directory, error);
  for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
    std::string entry = FromPath(entries->path().filename());
    if (EqualIgnoringCase(entry, wanted) && (!found || entry < *found)) found = std::move(entry);
  }
  if (!found) return std::nullopt;
  return directory / ToPath(*found);
}

/// A directory under the spelling that exists; where a part does not exist, the rest is taken as written.
fs::path FindDirectory(const fs::path& directory) {
  fs::path found = directory.root_path();
  for (const fs::path& part : directory.relative_path()) found = FindEntry(found, part).value_or(found / part);
  return found;
}

std::error_code CopyIn(const Folder& folder, std::string_view from, std::string_view to, Spelling spelling) {
  const auto source = folder.Find(from);
  const auto target = folder.FindForWriting(to, spelling);
  return source && target ? CopyPath(*source, *target) : std::make_error_code(std::errc::no_such_file_or_directory);
}

}  // namespace

std::optional<fs::path> Folder::PathOf(std::string_view name) const {
  auto path = NativePath(name);
  if (path && !directory_.empty()) path = directory_ / *path;
  return path;
}

std::optional<fs::path> Folder::Find(std::string_view name) const {
  auto path = PathOf(name);
  if (!path) return std::nullopt;
  std::error_code error;
  if (fs::exists(*path, error)) return path;
  return FindEntry(FindDirectory(path->parent_path()), path->filename());
}

std::optional<fs::path> Folder::FindForWriting(std::string_view name, Spelling spelling) const {
  auto existing = spelling == Spelling::kAny ? Find(name) : std::nullopt;
  if (existing) return existing;
  auto path = PathOf(name);
  if (!path) return std::nullopt;
  return FindDirectory(path->parent_path()) / path->filename();
}

bool Folder::Copy(std::string_view from, std::string_view to, Spelling spelling) const {
  return !CopyIn(*this, from, to, spelling);
}

void Folder::CopyRequired(std::string_view from, std::string_view to, Spelling spelling) const {
  if (const std::error_code error = CopyIn(*this, from, to, spelling))
    throw FatalIoError(std::string(to) + ": cannot be made a copy of " + std::string(from) + ": " +
                       error.default_error_condition().message());
}

bool Folder::Delete(std::string_view name) const {
  std::error_code error;
  const auto path = Find(name);
  return path && !fs::is_directory(*path, error) && RemovePath(*path);
}

}  // namespace talven
