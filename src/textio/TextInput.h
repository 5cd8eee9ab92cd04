// Text handed out as lines: what every reader of a format takes, whether the text came from a file or not.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace talven {

/// A text with the name that messages give it. Lines end with LF or CRLF, or with CRs more than that; a UTF-8 byte
/// order mark at the start is dropped, and a last line without an end counts as a line. Line views hold as long as the
/// text.
class TextInput {
 public:
  TextInput() = default;
  TextInput(std::string name, std::string content);

  const std::string& Name() const { return name_; }
  /// The whole text, as it came.
  std::string_view Content() const { return content_; }
  /// The same, taken away: nothing is left to read.
  std::string TakeContent();
  /// Number of the line read last, from 1; 0 before the first.
  std::size_t LineNumber() const { return line_number_; }

  /// The next line without its end; false at the end of the text.
  bool ReadLine(std::string_view& line);
  /// The next line. Throws FatalIoError at the end of the text; `expected` says what should have come.
  std::string_view RequireLine(std::string_view expected);
  void Rewind();

  /// Throws FatalIoError with name, line, what was expected and what stood there.
  [[noreturn]] void Fail(std::string_view expected, std::string_view found) const;

 protected:
  std::string name_;
  std::string content_;

 private:
  std::size_t position_ = 0;
  std::size_t line_number_ = 0;
};

/// Text from a file as it may stand in a message: in quotes, cut to 40 characters, unprintable ones as '?'.
std::string Quote(std::string_view text);

}  // namespace talven
