#include "textio/TextInput.h"

#include <utility>

#include "textio/FatalIoError.h"

namespace talven {

TextInput::TextInput(std::string name, std::string content) : name_(std::move(name)), content_(std::move(content)) {
  Rewind();
}

std::string TextInput::TakeContent() {
  std::string content = std::move(content_);
  content_.clear();
  Rewind();
  return content;
}

bool TextInput::ReadLine(std::string_view& line) {
  if (position_ >= content_.size()) return false;
  const std::string_view rest = std::string_view(content_).substr(position_);
  const std::size_t end = rest.find('\n');
  line = rest.substr(0, end);
  position_ = end == std::string_view::npos ? content_.size() : position_ + end + 1;
  while (line.ends_with('\r')) line.remove_suffix(1);
  ++line_number_;
  return true;
}

std::string_view TextInput::RequireLine(std::string_view expected) {
  std::string_view line;
  if (!ReadLine(line)) FailAtLine(name_, line_number_ + 1, expected, "end of file");
  return line;
}

void TextInput::Rewind() {
  position_ = content_.starts_with("\xEF\xBB\xBF") ? 3 : 0;
  line_number_ = 0;
}

void TextInput::Fail(std::string_view expected, std::string_view found) const {
  FailAtLine(name_, line_number_, expected, found);
}

std::string Quote(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text.substr(0, 40)) quoted += c >= ' ' && c <= '~' ? c : '?';
  return quoted + (text.size() > 40 ? "...\"" : "\"");
}

}  // namespace talven
