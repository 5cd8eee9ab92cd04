#include "handlers/PrepareTestIns.h"

#include <string>

#include "shelx/InsMarkers.h"
#include "shelx/RewriteWminIns.h"
#include "textio/InputFile.h"
#include "textio/OutputFile.h"

namespace talven {
namespace {

/// Moves the incoming text to TEST.INS. A job of that very name fails here, with its text as it was: a file can't be
/// copied onto itself.
void MoveToTestIns(const Folder& folder, const std::string& ins_name) {
  const bool is_itself = ins_name == kTestIns;
  if (!is_itself) folder.Delete(kTestIns);
  folder.CopyRequired(ins_name, kTestIns, is_itself ? Spelling::kAny : Spelling::kExact);
  folder.Delete(ins_name);
}

void PutBack(const Folder& folder, const std::string& ins_name) {
  folder.CopyRequired(kTestIns, ins_name, Spelling::kExact);
  folder.Delete(kTestIns);
}

bool NeedsRewriting(InputFile& ins) {
  const bool found = HasWminMarker(ins);
  ins.Rewind();
  return found;
}

}  // namespace

std::optional<InsCensus> PrepareTestIns(Ui& ui, const RunState& run) {
  const Folder& folder = run.folder;
  const std::string ins_name = run.JobFile(".INS");
  MoveToTestIns(folder, ins_name);
  ui.ShowLine(ins_name);
  OutputFile normalised;
  normalised.Open(folder, ins_name, Spelling::kExact);
  InputFile source;
  source.OpenRequired(folder, kTestIns);
  if (NeedsRewriting(source)) {
    const bool rewritten = RewriteWminIns(source, ui.line.Cleaner(), normalised);
    normalised.Close();
    if (!rewritten) {
      PutBack(folder, ins_name);
      return std::nullopt;
    }
    folder.Delete(kTestIns);
    folder.CopyRequired(ins_name, kTestIns, Spelling::kExact);
    ui.ShowLine(ins_name);
    normalised.Open(folder, ins_name, Spelling::kExact);
    source.OpenRequired(folder, kTestIns);
  }
  const InsCensus census = NormaliseIns(source, ui.line.Cleaner(), normalised);
  normalised.Close();
  ui.ShowLine(ins_name);
  return census;
}

}  // namespace talven
