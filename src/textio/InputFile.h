// The one way in which files are read: whole, and handed out as lines.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace talven {

/// An existing text file. Lines end with LF or CRLF, or with CRs more than that; a UTF-8 byte order mark at the start
/// is dropped, and a last line without an end counts as a line. Line views hold until the file is closed.
class InputFile {
 public:
  /// Opens the file that a name means (see FindExisting) and reads it. False if there is none that can be read.
  [[nodiscard]] bool Open(std::string_view name);
  /// The same for a file that has to be there. Throws FatalIoError if it is not.
  void OpenRequired(std::string_view name);
  void Close();

  /// The next line without its end; false at the end of the file.
  bool ReadLine(std::string_view& line);
  /// The next line. Throws FatalIoError at the end of the file; `expected` says what should have come.
  std::string_view RequireLine(std::string_view expected);
  void Rewind();

  /// Throws FatalIoError with file, line, what was expected and what stood there.
  [[noreturn]] void Fail(std::string_view expected, std::string_view found) const;

 private:
  std::string name_;
  std::string content_;
  std::size_t position_ = 0;
  /// Number of the line read last, from 1.
  std::size_t line_number_ = 0;
};

/// Text from a file as it may stand in a message: in quotes, cut to 40 characters, unprintable ones as '?'.
std::string Quote(std::string_view text);

}  // namespace talven
