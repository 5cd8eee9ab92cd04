// The one way in which files are read: whole.
#pragma once

#include <string_view>

#include "textio/Folder.h"
#include "textio/TextInput.h"

namespace talven {

/// An existing text file. Line views hold until it is closed.
class InputFile : public TextInput {
 public:
  /// Opens the file that a name means in a folder (see Folder::Find) and reads it. False if there is none that can be
  /// read. Throws FatalIoError if it fails on the way.
  [[nodiscard]] bool Open(const Folder& folder, std::string_view name);
  /// The same for a file that has to be there. Throws FatalIoError if it is not.
  void OpenRequired(const Folder& folder, std::string_view name);
  void Close();
};

}  // namespace talven
