#include "ui/LineBuffer.h"

namespace talven {

void BlankControlCharacters(Text80& line) {
  for (std::size_t column = 1; column <= 80; ++column)
    line[column] = static_cast<unsigned char>(line[column]) < ' ' ? ' ' : line[column];
}

std::int32_t LineBuffer::TrimLine() {
  BlankControlCharacters(text_);
  const auto length = static_cast<std::int32_t>(text_.Trimmed().size());
  if (length > 0) length_ = length;
  return length_;
}

std::string_view LineBuffer::TrimmedLine() {
  return text_.First(static_cast<std::size_t>(TrimLine()));
}

}  // namespace talven
