// A directory, and the files that names mean there.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>
#include <utility>

#include "textio/FileNames.h"

namespace talven {

/// Which existing file is replaced: one that differs in case too, or only one of the very name. The latter is for a
/// name whose file has just been deleted: another spelling that is still there is somebody else's.
enum class Spelling { kAny, kExact };

/// Names are compared without regard to case. A name may be a path: a relative one leads on from the directory, an
/// absolute one or one on a drive (see NativePath) stands for itself.
class Folder {
 public:
  /// The current directory of the process at the time of each call: for programs that have one session only.
  Folder() = default;
  explicit Folder(std::filesystem::path directory) : directory_(std::move(directory)) {}

  const std::filesystem::path& Directory() const { return directory_; }

  /// Where a name lies if it is taken as it stands. Nothing for a drive that is none.
  std::optional<std::filesystem::path> PathOf(std::string_view name) const;

  /// The existing file or folder that a name means: the exact name first, then one that differs in case only (the first
  /// in sorted order), in every part of the path. Nothing if there is none.
  std::optional<std::filesystem::path> Find(std::string_view name) const;

  /// The file to write for a name: the existing one, else the name as it stands, below the folders that exist under any
  /// spelling. Nothing for a drive that is none.
  std::optional<std::filesystem::path> FindForWriting(std::string_view name, Spelling spelling = Spelling::kAny) const;

  /// Copies a file, replacing what is there; false if that failed.
  bool Copy(std::string_view from, std::string_view to, Spelling spelling = Spelling::kAny) const;

  /// The same where the copy has to come about: throws FatalIoError if it did not, also where both names mean one file.
  void CopyRequired(std::string_view from, std::string_view to, Spelling spelling = Spelling::kAny) const;

  /// Deletes a file; a file that is not there is no error. True if one was deleted.
  bool Delete(std::string_view name) const;

 private:
  std::filesystem::path directory_;
};

}  // namespace talven
