// Input files by their paths, and the names of outputs that follow from them.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "textio/Folder.h"

namespace talven {

/// An input as the command line names it.
class InputPath {
 public:
  explicit InputPath(std::string text);

  /// As given: what messages and the column `file` say.
  const std::string& Text() const { return text_; }
  /// The folder in which the file and its siblings lie; the current directory as `.`.
  const Folder& Home() const { return home_; }
  /// Name in that folder.
  const std::string& Name() const { return name_; }
  /// Name without its last extension, and that extension in lower case without its point.
  const std::string& Stem() const { return stem_; }
  /// The stem as it may stand on a line of a file: control characters as blanks.
  std::string HeadName() const;
  const std::string& Extension() const { return extension_; }

 private:
  std::string text_;
  Folder home_;
  std::string name_;
  std::string stem_;
  std::string extension_;
};

}  // namespace talven
