#include "shelx/InsMarkers.h"

#include "textio/LetterCase.h"

namespace talven {

WminState FindWminMarker(TextInput& ins) {
  std::string_view line;
  while (ins.ReadLine(line)) {
    if (line.starts_with(kWminMarker)) return WminState::kWmin;
    if (line.starts_with(kXwminMarker)) return WminState::kXwmin;
  }
  return WminState::kNone;
}

bool HasWminMarker(TextInput& ins) {
  std::string_view line;
  while (ins.ReadLine(line))
    if (line.starts_with(kWminMarker)) return true;
  return false;
}

bool IsSpaceGroupLine(const Text80& line) {
  const std::string_view second_word = Columns(line.View(), 9, 12);
  return line.StartsWith("REM SG ") && second_word != "ASUN" && second_word != "ORGN";
}

std::int32_t FindLatticeLetter(const Text80& line) {
  for (const char c : line.First(60)) {
    const std::int32_t code = static_cast<unsigned char>(UpperCase(c));
    if (code > '@') return code;
  }
  return 0;
}

}  // namespace talven
