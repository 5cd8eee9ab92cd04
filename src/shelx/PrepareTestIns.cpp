#include "shelx/PrepareTestIns.h"

#include <string>

#include "shelx/InsLine.h"
#include "shelx/InsMarkers.h"
#include "shelx/RewriteWminIns.h"
#include "textio/Folder.h"

namespace talven {
namespace {

constexpr std::string_view kTestIns = "TEST.INS";
constexpr std::string_view kListLine = "LIST 4";
constexpr std::string_view kFmapLine = "FMAP 2";

/// Moves the incoming text to TEST.INS. A job of that very name fails here, with its text as it was: a file can't be
/// copied onto itself.
void MoveToTestIns(const std::string& ins_name) {
  const bool is_itself = ins_name == kTestIns;
  if (!is_itself) Folder().Delete(kTestIns);
  Folder().CopyRequired(ins_name, kTestIns, is_itself ? Spelling::kAny : Spelling::kExact);
  Folder().Delete(ins_name);
}

void PutBack(const std::string& ins_name) {
  Folder().CopyRequired(kTestIns, ins_name, Spelling::kExact);
  Folder().Delete(kTestIns);
}

bool NeedsRewriting(InputFile& ins) {
  std::string_view line;
  bool found = false;
  while (!found && ins.ReadLine(line)) found = line.starts_with(kWminMarker);
  ins.Rewind();
  return found;
}

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

/// Writes a line in its normal form. Missing LIST and FMAP lines are put before every FVAR.
void WriteNormalised(LineBuffer& line, OutputFile& ins, const Text80& text, const InsCensus& census) {
  if (text.StartsWith("FMAP")) return WriteInsLine(line, ins, kFmapLine);
  if (text.StartsWith("LIST")) return WriteInsLine(line, ins, kListLine);
  if (text.StartsWith("L.S.") || text.StartsWith("ACTA"))
    return WriteInsLine(line, ins, Record().X(4).A(text.View()).Text());
  if (text.StartsWith("FVAR")) {
    if (census.ListCount == 0) WriteInsLine(line, ins, kListLine);
    if (census.FmapCount == 0) WriteInsLine(line, ins, kFmapLine);
  }
  WriteInsLine(line, ins, text.View());
}

void Normalise(LineBuffer& line, InputFile& source, OutputFile& ins, InsCensus& census) {
  std::string_view text;
  while (source.ReadLine(text)) {
    const Text80 source_line(text);
    CountInstruction(source_line, census);
    WriteNormalised(line, ins, source_line, census);
  }
}

}  // namespace

bool PrepareTestIns(Ui& ui, const RunState& run, InputFile& ins, InsCensus& census) {
  const std::string ins_name = run.JobFile(".INS");
  ins.Close();
  MoveToTestIns(ins_name);
  ui.ShowLine(ins_name);
  OutputFile normalised;
  normalised.Open(Folder(), ins_name, Spelling::kExact);
  InputFile source;
  source.OpenRequired(Folder(), kTestIns);
  if (NeedsRewriting(source)) {
    const bool rewritten = RewriteWminIns(ui.line, source, normalised);
    normalised.Close();
    if (!rewritten) {
      PutBack(ins_name);
      return false;
    }
    Folder().Delete(kTestIns);
    Folder().CopyRequired(ins_name, kTestIns, Spelling::kExact);
    ui.ShowLine(ins_name);
    normalised.Open(Folder(), ins_name, Spelling::kExact);
    source.OpenRequired(Folder(), kTestIns);
  }
  Normalise(ui.line, source, normalised, census);
  normalised.Close();
  ui.ShowLine(ins_name);
  ins.OpenRequired(Folder(), ins_name);
  Folder().Delete(kTestIns);
  return true;
}

}  // namespace talven
