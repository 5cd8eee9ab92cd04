#include "handlers/PatternConversions.h"

#include <string>

#include "handlers/JobInput.h"
#include "patterns/InputHints.h"
#include "patterns/UnscramblerTxt.h"
#include "patterns/XyTxt.h"
#include "textio/OutputFile.h"

namespace talven {
namespace {

constexpr std::size_t kTitleCharacters = 12;

/// The title of a pattern made from a CIF. A blank one is as long as the line that the screen cleaned last.
std::string CifTitle(Ui& ui, const RunState& run) {
  ui.line = std::string(4, ' ').append(run.JobName.First(kTitleCharacters));
  return std::string(ui.line.TrimmedLine());
}

/// Says why a pattern of so many points cannot be written; empty if it can.
std::string_view TxtRefusal(std::int32_t count) {
  if (count > kLargestTxtPointCount) return "30,000 point limit";
  if (count < 1) return "NO Points in ING File";
  return {};
}

void ShowWritten(Ui& ui, std::string_view text) {
  ui.ShowLine("");
  ui.ShowLine(text);
}

}  // namespace

void CifToIng(Ui& ui, RunState& run, SmallCifNames& names) {
  InputFile cif;
  if (!OpenJobInput(ui, run, ".CIF", cif)) return;
  TellHint(ui, HintForCif(cif.Name(), cif.Content()));
  ui.ShowLine(run.JobFile(".ING"));
  OutputFile ing;
  ing.Open(run.folder, run.JobFile(".ING"));
  const SmallCif read = ReadSmallCif(cif, names);
  WriteIngOfCif(ing, CifTitle(ui, run), read.header, read.rows);
  if (read.error) throw FatalIoError(*read.error);
  ing.Close();
  ui.ShowLine("    NEW.ING written");  // On purpose: the name is fixed, whatever file was written.
}

void IngToCif(Ui& ui, RunState& run) {
  InputFile ing;
  if (!OpenJobInput(ui, run, ".ING", ing)) return;
  OutputFile cif;
  cif.Open(run.folder, "NEW.CIF");
  const IngHeader header = ReadIngHeader(ing);
  const IngRows read = ReadIngRows(ing, kCifRows, header);
  WriteSmallCif(cif, header, read.rows);
  if (read.error) throw FatalIoError(*read.error);
  cif.Close();
  ShowWritten(ui, "    NEW.CIF written");
}

void IngToTxt(Ui& ui, RunState& run) {
  InputFile ing;
  if (!OpenJobInput(ui, run, ".ING", ing)) return;
  OutputFile txt;
  txt.Open(run.folder, run.JobFile(".TXT"));
  const IngHeader header = ReadIngHeader(ing);
  if (const std::string_view refusal = TxtRefusal(CountIngRows(kTxtRows, header)); !refusal.empty()) {
    txt.Close();
    ui.ShowMessage(refusal);
    return;
  }
  const IngRows read = ReadIngRows(ing, kTxtRows, header);
  if (read.error) throw FatalIoError(*read.error);
  WriteUnscramblerTxt(txt, MakeUnscramblerTable(read.rows));
  txt.Close();
  ShowWritten(ui, run.JobFile(".TXT Written"));
}

void TxtToIng(Ui& ui, RunState& run) {
  ui.toolkit.WMessageBox({.icon = MessageIcon::kInformation,
                          .text = "The XY file should be a DOS TXT file with\r"
                                  "no blank lines. Lines starting with REM are\r"
                                  "ignored.\r"
                                  "Each XY line should be just X and Y in free format",
                          .title = " "});
  ui.ShowLine(run.JobFile(".TXT"));
  InputFile txt;
  if (!OpenJobInput(ui, run, ".TXT", txt)) return;
  TellHint(ui, HintForTxt(txt.Name(), txt.Content()));
  OutputFile ing;
  ing.Open(run.folder, run.JobFile(".ING"));
  WriteIng(ing, run.JobName.View(), ReadXyTxt(txt));
  ShowWritten(ui, run.JobFile(".ING written"));
  ing.Close();
}

}  // namespace talven
