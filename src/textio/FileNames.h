// File names as users and other programs write them, and what systems do with files in different ways.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace talven {

/// The text of a name or directory as the operating system's path, and back. The text is UTF-8 where the system cares;
/// on Windows a name that is not is taken in the code page of older programs. No text fails.
std::filesystem::path ToPath(std::string_view name);
std::string FromPath(const std::filesystem::path& path);

/// Where a name on a drive lies. On systems without drive letters `C:\exe\DIR.DEF` is
/// `<data home>/talven/drives/c/exe/DIR.DEF`, and `/` in the place of the letter stands for `C`. The data home is
/// $XDG_DATA_HOME if that is an absolute path, else $HOME/.local/share. Nothing for a drive that is no letter, or
/// without a data home. A name that has no drive, and every name on Windows, comes back as it is.
std::optional<std::filesystem::path> NativePath(std::string_view name);

/// Copying a file onto another one or none, which fails where both are the same, and deleting one, which may be
/// write-protected.
std::error_code CopyPath(const std::filesystem::path& from, const std::filesystem::path& to);
bool RemovePath(const std::filesystem::path& path);

}  // namespace talven
