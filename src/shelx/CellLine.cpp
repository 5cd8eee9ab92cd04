#include "shelx/CellLine.h"

#include <array>

#include "textio/FixedText.h"
#include "textio/FreeForm.h"

namespace talven {

std::optional<UnitCell> ReadCellLine(TextInput& ins) {
  std::string_view line;
  while (ins.ReadLine(line)) {
    Text80 text(line);
    if (!text.StartsWith("CELL")) continue;
    text.BlankFirst(4);
    std::array<float, 7> numbers{};
    ParseReals(ins, text.View(), numbers, "after CELL");
    const auto [wavelength, a, b, c, alpha, beta, gamma] = numbers;
    return UnitCell{wavelength, a, b, c, alpha, beta, gamma};
  }
  return std::nullopt;
}

}  // namespace talven
