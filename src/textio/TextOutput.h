// Where every writer of a format puts its lines, whether they go into a file or stay in memory.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "textio/Record.h"

namespace talven {

/// Lines with LF ends, gathered in a buffer.
class TextOutput {
 public:
  virtual ~TextOutput() = default;
  TextOutput(const TextOutput&) = delete;
  TextOutput& operator=(const TextOutput&) = delete;

  void WriteLine(std::string_view line) {
    buffer_.append(line);
    buffer_.push_back('\n');
    if (buffer_.size() >= kBufferSize) HandOn();
  }
  void WriteLine(const Record& record) { WriteLine(record.Text()); }

 protected:
  static constexpr std::size_t kBufferSize = 64 * 1024;

  TextOutput() = default;
  /// The buffer is full.
  virtual void HandOn() = 0;

  std::string buffer_;
};

/// Lines that stay in memory.
class OutputText : public TextOutput {
 public:
  const std::string& Text() const { return buffer_; }

 private:
  void HandOn() override {}
};

}  // namespace talven
