#include "simulation/CellLine.h"

#include <array>

#include "crystal/CellGeometry.h"
#include "textio/FixedText.h"
#include "textio/FreeForm.h"
#include "textio/Numbers.h"

namespace talven {

bool ReadCellLine(InputFile& ins, UnitCell& cell) {
  std::string_view line;
  while (ins.ReadLine(line)) {
    Text80 text(line);
    if (!text.StartsWith("CELL")) continue;
    text.BlankFirst(4);
    std::array<float, 7> numbers{};
    ParseReals(ins, text.View(), numbers, "after CELL");
    cell.Wavelength = numbers[0];
    cell.a = numbers[1];
    cell.b = numbers[2];
    cell.c = numbers[3];
    cell.alpha = numbers[4];
    cell.beta = numbers[5];
    cell.gamma = numbers[6];
    cell.CosAlpha = Store(CosineOf(cell.alpha));
    cell.CosBeta = Store(CosineOf(cell.beta));
    cell.CosGamma = Store(CosineOf(cell.gamma));
    cell.Volume = CellVolume(cell, cell.CosAlpha, cell.CosBeta, cell.CosGamma);
    return true;
  }
  return false;
}

}  // namespace talven
