#include "simulation/CellLine.h"

#include <array>
#include <cmath>

#include "textio/FixedText.h"
#include "textio/FreeForm.h"
#include "textio/Numbers.h"

namespace talven {
namespace {

float StoredCosine(float degrees) {
  return Store(std::cos(degrees * (1.0 / kDegreesPerRadian)));
}

/// V = abc sqrt(1 - cos^2 alpha - cos^2 beta - cos^2 gamma + 2 cos alpha cos beta cos gamma), International Tables.
float CellVolume(const UnitCell& cell) {
  const double ca = cell.CosAlpha;
  const double cb = cell.CosBeta;
  const double cg = cell.CosGamma;
  const float root = Store(std::fabs(1.0 - ca * ca - cb * cb - cg * cg + 2.0 * ca * cb * cg));
  return Store(static_cast<double>(cell.a) * cell.b * cell.c * std::sqrt(static_cast<double>(root)));
}

}  // namespace

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
    cell.CosAlpha = StoredCosine(cell.alpha);
    cell.CosBeta = StoredCosine(cell.beta);
    cell.CosGamma = StoredCosine(cell.gamma);
    cell.Volume = CellVolume(cell);
    return true;
  }
  return false;
}

}  // namespace talven
