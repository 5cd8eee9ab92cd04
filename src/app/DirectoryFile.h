// The directory file: the one thing that the program remembers from run to run.
//
// `<drive>:\exe\VELDOR\DIR.DEF` holds one line, the working directory, padded with blanks to 80 characters.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace talven {

/// The directory in the file; nothing if there is no such file. Throws FatalIoError if it is empty.
std::optional<std::string> ReadDirectoryFile(char drive_letter);

/// The same where the file has to exist: throws FatalIoError if it does not.
std::string RequireDirectoryFile(char drive_letter);

/// Rewrites the file, and makes the folders on the way to it. A directory of more than 80 characters is written in
/// full. Throws FatalIoError.
void WriteDirectoryFile(char drive_letter, std::string_view directory);

}  // namespace talven
