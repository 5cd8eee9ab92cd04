// The one error of files: a read, write, open, close or rewind that failed, or text that cannot be read.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace talven {

/// Ends a session of the options: nothing between the place that throws it and the entry point catches it to go on.
/// Programs that work on many files fail that file alone. The text names the file, the line where there is one, what
/// was expected and what stood there: `ABC.INS, line 4: expected 7 numbers after CELL, found 5`.
class FatalIoError : public std::runtime_error {
 public:
  explicit FatalIoError(const std::string& text) : std::runtime_error(text) {}
};

/// Throws FatalIoError for a line of a file, counted from 1.
[[noreturn]] void FailAtLine(std::string_view file, std::size_t line, std::string_view expected,
                             std::string_view found);

}  // namespace talven
