#include <algorithm>
#include <cstdlib>

#include "textio/FileNames.h"
#include "textio/LetterCase.h"

namespace talven {
namespace {

namespace fs = std::filesystem;

std::optional<std::string> DataHome() {
  const char* const data_home = std::getenv("XDG_DATA_HOME");
  if (data_home != nullptr && *data_home == '/') return data_home;
  const char* const home = std::getenv("HOME");
  if (home != nullptr && *home != '\0') return std::string(home) + "/.local/share";
  return std::nullopt;
}

/// The folder of a drive, by the letter in either case.
std::optional<char> DriveFolder(char drive) {
  const char letter = drive == '/' ? 'c' : LowerCase(drive);
  return letter >= 'a' && letter <= 'z' ? std::optional(letter) : std::nullopt;
}

}  // namespace

fs::path ToPath(std::string_view name) {
  return name;
}

std::string FromPath(const fs::path& path) {
  return path.native();
}

std::optional<fs::path> NativePath(std::string_view name) {
  if (name.size() < 3 || name.substr(1, 2) != ":\\") return ToPath(name);
  const auto drive = DriveFolder(name.front());
  const auto data_home = DataHome();
  if (!drive || !data_home) return std::nullopt;
  std::string path = *data_home + "/talven/drives/" + *drive + std::string(name.substr(2));
  std::ranges::replace(path, '\\', '/');
  return ToPath(path);
}

std::error_code CopyPath(const fs::path& from, const fs::path& to) {
  std::error_code error;
  fs::copy_file(from, to, fs::copy_options::overwrite_existing, error);
  return error;
}

bool RemovePath(const fs::path& path) {
  std::error_code error;
  return fs::remove(path, error);
}

}  // namespace talven
