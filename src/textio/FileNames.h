// File names as users and other programs write them, and the files that they mean.
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

/// The existing file or folder that a name means: the exact name first, then one that differs in case only (the first
/// in sorted order), in every part of the path. Nothing if there is none.
std::optional<std::filesystem::path> FindExisting(std::string_view name);

/// Which existing file is replaced: one that differs in case too, or only one of the very name. The latter is for a
/// name whose file has just been deleted: another spelling that is still there is somebody else's.
enum class Spelling { kAny, kExact };

/// The file to write for a name: the existing one, else the name as it stands, below the folders that exist under any
/// spelling. Nothing for a drive that is none.
std::optional<std::filesystem::path> FindForWriting(std::string_view name, Spelling spelling = Spelling::kAny);

/// Copies a file, replacing what is there; false if that failed.
bool CopyExisting(std::string_view from, std::string_view to, Spelling spelling = Spelling::kAny);

/// The same where the copy has to come about: throws FatalIoError if it did not, also where both names mean one file.
void CopyRequired(std::string_view from, std::string_view to, Spelling spelling = Spelling::kAny);

/// What systems do in different ways: copying a file onto another one or none, which fails where both are the same, and
/// deleting one, which may be write-protected.
std::error_code CopyPath(const std::filesystem::path& from, const std::filesystem::path& to);
bool RemovePath(const std::filesystem::path& path);

/// Deletes a file; a file that is not there is no error. True if one was deleted.
bool DeleteExisting(std::string_view name);

}  // namespace talven
