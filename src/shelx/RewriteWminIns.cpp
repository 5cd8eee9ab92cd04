#include "shelx/RewriteWminIns.h"

#include <array>

#include "shelx/AtomSerials.h"
#include "shelx/InsLine.h"
#include "shelx/InsMarkers.h"
#include "textio/FreeForm.h"

namespace talven {
namespace {

/// Formula units in the cell, from the last remark with the space group; 0 without one.
std::int32_t ReadFormulaUnits(InputFile& raw) {
  std::array<std::int32_t, 2> numbers{};
  std::string_view text;
  while (raw.ReadLine(text)) {
    Text80 line(text);
    if (!IsSpaceGroupLine(line)) continue;
    line.BlankFirst(6);
    ParseWholeNumbers(raw, line.View(), numbers, "after REM SG");
  }
  return numbers[1];
}

void SkipToFvar(InputFile& raw) {
  while (!raw.RequireLine("a line FVAR").starts_with("FVAR")) continue;
}

/// The next line between FVAR and HKLF; false at HKLF.
bool ReadAtomLine(InputFile& raw, Text80& line) {
  line = raw.RequireLine("an atom or a line HKLF");
  return !line.StartsWith("HKLF");
}

/// Counts the atoms by their labels. False if there are too many labels.
bool CountElements(InputFile& raw, ElementTable& elements) {
  SkipToFvar(raw);
  Text80 line;
  while (ReadAtomLine(raw, line))
    if (!elements.Count(FoldLabel(line))) return false;
  return true;
}

/// Writes all that stands before FVAR, and leaves the reading behind that.
void WriteHead(LineBuffer& line, InputFile& raw, OutputFile& ins, std::int32_t formula_units) {
  while (true) {
    const Text80 text(raw.RequireLine("a line FVAR"));
    if (text.StartsWith("FVAR")) return;
    if (text.StartsWith(kWminMarker)) continue;
    WriteInsLine(line, ins, text.View());
    if (text.StartsWith("CELL"))
      WriteInsLine(line, ins, Record().A("ZERR ").I(formula_units, 2).A(" .002 .002 .002 0. 0. 0.").Text());
    if (text.StartsWith("TITL")) WriteInsLine(line, ins, kXwminMarker);
  }
}

void WriteAtoms(InputFile& raw, OutputFile& ins, const ElementTable& elements) {
  AtomSerials serials;
  Text80 line;
  while (ReadAtomLine(raw, line)) {
    const AtomLabel label = FoldLabel(line);
    std::array<float, 3> xyz{};
    line.BlankFirst(8);
    ParseReals(raw, line.View(), xyz, "behind column 8 of an atom");
    Record row;
    row.A(serials.Number(label).View()).I(elements.PositionOf(label), 4);
    for (const float value : xyz) row.F(value, 9, 3);
    ins.WriteLine(row.A(" 11.0 .05"));
  }
}

}  // namespace

bool RewriteWminIns(LineBuffer& line, InputFile& raw, OutputFile& ins) {
  const std::int32_t formula_units = ReadFormulaUnits(raw);
  raw.Rewind();
  ElementTable elements;
  if (!CountElements(raw, elements)) return false;
  raw.Rewind();
  WriteHead(line, raw, ins, formula_units);
  WriteInsLine(line, ins, elements.SfacLine().Text());
  WriteInsLine(line, ins, elements.UnitLine().Text());
  WriteInsLine(line, ins, "FVAR");
  WriteAtoms(raw, ins, elements);
  WriteInsLine(line, ins, "HKLF 4");
  return true;
}

}  // namespace talven
