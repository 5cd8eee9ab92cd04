#include "shelx/NormaliseIns.h"

#include "shelx/InsMarkers.h"

namespace talven {
namespace {

constexpr std::string_view kListLine = "LIST 4";
constexpr std::string_view kFmapLine = "FMAP 2";

void CountInstruction(const Text80& line, InsCensus& census) {
  if (IsSpaceGroupLine(line)) {
    Text80 text = line;
    text.BlankFirst(6);
    census.LatticeLetter = FindLatticeLetter(text);
  }
  census.CellZerrCount += line.StartsWith("CELL") || line.StartsWith("ZERR") ? 1 : 0;
  census.SfacUnitCount += line.StartsWith("SFAC") || line.StartsWith("UNIT") ? 1 : 0;
  census.FmapCount += line.StartsWith("FMAP") ? 1 : 0;
  census.ListCount += line.StartsWith("LIST") ? 1 : 0;
  census.FvarCount += line.StartsWith("FVAR") ? 1 : 0;
}

void WriteNormalised(const Text80& text, const InsCensus& census, LineCleaner& cleaner, TextOutput& ins) {
  if (text.StartsWith("FMAP")) return WriteInsLine(kFmapLine, cleaner, ins);
  if (text.StartsWith("LIST")) return WriteInsLine(kListLine, cleaner, ins);
  if (text.StartsWith("L.S.") || text.StartsWith("ACTA"))
    return WriteInsLine(Record().X(4).A(text.View()).Text(), cleaner, ins);
  if (text.StartsWith("FVAR")) {
    if (census.ListCount == 0) WriteInsLine(kListLine, cleaner, ins);
    if (census.FmapCount == 0) WriteInsLine(kFmapLine, cleaner, ins);
  }
  WriteInsLine(text.View(), cleaner, ins);
}

}  // namespace

InsCensus NormaliseIns(TextInput& source, LineCleaner& cleaner, TextOutput& ins) {
  InsCensus census;
  std::string_view text;
  while (source.ReadLine(text)) {
    const Text80 line(text);
    CountInstruction(line, census);
    WriteNormalised(line, census, cleaner, ins);
  }
  return census;
}

void WriteInsLine(std::string_view text, LineCleaner& cleaner, TextOutput& ins) {
  Text80 line(text);
  const std::int32_t length = cleaner.CleanTextLine(line);
  ins.WriteLine(line.First(static_cast<std::size_t>(length)));
}

}  // namespace talven
