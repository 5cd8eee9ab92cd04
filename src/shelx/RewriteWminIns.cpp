#include "shelx/RewriteWminIns.h"

#include <array>

#include "shelx/AtomLabels.h"
#include "shelx/InsMarkers.h"
#include "shelx/NormaliseIns.h"
#include "textio/FreeForm.h"

namespace talven {
namespace {

/// Formula units in the cell, from the last remark with the space group; 0 without one.
std::int32_t ReadFormulaUnits(TextInput& raw) {
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

void SkipToFvar(TextInput& raw) {
  while (!raw.RequireLine("an FVAR line").starts_with("FVAR")) continue;
}

/// The next line between FVAR and HKLF; false at HKLF.
bool ReadAtomLine(TextInput& raw, Text80& line) {
  line = raw.RequireLine("an atom or an HKLF line");
  return !line.StartsWith("HKLF");
}

/// Counts the atoms by their labels. False if there are too many labels.
bool CountElements(TextInput& raw, ElementTable& elements) {
  SkipToFvar(raw);
  Text80 line;
  while (ReadAtomLine(raw, line))
    if (!elements.Count(FoldLabel(line))) return false;
  return true;
}

/// Writes all that stands before FVAR, and stops reading right after it.
void WriteHead(TextInput& raw, std::int32_t formula_units, LineCleaner& cleaner, TextOutput& ins) {
  while (true) {
    const Text80 text(raw.RequireLine("an FVAR line"));
    if (text.StartsWith("FVAR")) return;
    if (text.StartsWith(kWminMarker)) continue;
    WriteInsLine(text.View(), cleaner, ins);
    if (text.StartsWith("CELL"))
      WriteInsLine(Record().A("ZERR ").I(formula_units, 2).A(" .002 .002 .002 0. 0. 0.").Text(), cleaner, ins);
    if (text.StartsWith("TITL")) WriteInsLine(kXwminMarker, cleaner, ins);
  }
}

void WriteAtoms(TextInput& raw, TextOutput& ins, const ElementTable& elements) {
  AtomSerials serials;
  Text80 line;
  while (ReadAtomLine(raw, line)) {
    const AtomLabel label = FoldLabel(line);
    std::array<float, 3> xyz{};
    line.BlankFirst(8);
    ParseReals(raw, line.View(), xyz, "after column 8 of an atom");
    Record row;
    row.A(serials.Number(label).View()).I(elements.PositionOf(label), 4);
    for (const float value : xyz) row.F(value, 9, 3);
    ins.WriteLine(row.A(" 11.0 .05"));
  }
}

}  // namespace

bool RewriteWminIns(TextInput& raw, LineCleaner& cleaner, TextOutput& ins) {
  const std::int32_t formula_units = ReadFormulaUnits(raw);
  raw.Rewind();
  ElementTable elements;
  if (!CountElements(raw, elements)) return false;
  raw.Rewind();
  WriteHead(raw, formula_units, cleaner, ins);
  WriteInsLine(elements.SfacLine().Text(), cleaner, ins);
  WriteInsLine(elements.UnitLine().Text(), cleaner, ins);
  WriteInsLine("FVAR", cleaner, ins);
  WriteAtoms(raw, ins, elements);
  WriteInsLine("HKLF 4", cleaner, ins);
  return true;
}

}  // namespace talven
