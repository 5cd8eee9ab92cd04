#include "textio/LineCleaner.h"

namespace talven {

void BlankControlCharacters(Text80& line) {
  for (std::size_t column = 1; column <= 80; ++column)
    line[column] = static_cast<unsigned char>(line[column]) < ' ' ? ' ' : line[column];
}

std::int32_t LineCleaner::CleanTextLine(Text80& line) {
  BlankControlCharacters(line);
  const auto length = static_cast<std::int32_t>(line.Trimmed().size());
  if (length > 0) length_ = length;
  return length_;
}

}  // namespace talven
