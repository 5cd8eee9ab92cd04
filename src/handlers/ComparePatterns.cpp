#include "handlers/ComparePatterns.h"

#include <algorithm>
#include <string>

#include "comparison/ComparisonLog.h"
#include "comparison/PeakListFile.h"
#include "textio/InputFile.h"
#include "textio/Numbers.h"
#include "ui/forms/FormCatalogue.h"
#include "ui/forms/FormFields.h"

namespace talven {
namespace {

namespace field = comparison_field;

constexpr std::string_view kLogName = "Talven_corvane.log";
constexpr std::size_t kDirectoryLength = 160;

/// Shows the log's lines in the pane.
struct PaneLines : LineListener {
  explicit PaneLines(TextPane& used_pane) : pane(used_pane) {}
  void Receive(std::string_view line) override { pane.WriteTextLineFrom(Text80(line), 1); }
  TextPane& pane;
};

struct Comparison {
  Ui& ui;
  const Folder& folder;
  ComparisonSession& session;
  ComparisonLog log;
};

enum class Outcome { kGoOn, kCancelled, kFinished };

bool AskYes(Ui& ui, std::string_view question) {
  ui.toolkit.WMessageBox({.type = MessageType::kYesNo, .icon = MessageIcon::kQuestion, .text = question, .title = " "});
  return ui.toolkit.WDialogQuery(kOutcomeQuery) == 1;
}

void FillForm(Toolkit& toolkit, const ComparisonSettings& settings, std::int32_t btres_refill) {
  toolkit.WDialogPutReal(field::kAngTol, settings.AngTol);
  toolkit.WDialogPutReal(field::kNmf, settings.NMF);
  toolkit.WDialogPutReal(field::kSaf, settings.SAF);
  toolkit.WDialogPutInteger(field::kT4m, settings.WholeT4M());
  toolkit.WDialogPutReal(field::kBSep, settings.BSep);
  toolkit.WDialogPutInteger(field::kBtres, btres_refill);
  toolkit.WDialogPutReal(field::kBerr, settings.ShownBerr());
  toolkit.WDialogPutReal(field::kDSpace, settings.DSPACE);
}

ComparisonSettings ReadForm(const Toolkit& toolkit) {
  return {
      .AngTol = toolkit.WDialogGetReal(field::kAngTol),
      .NMF = toolkit.WDialogGetReal(field::kNmf),
      .SAF = toolkit.WDialogGetReal(field::kSaf),
      .T4M = Store(toolkit.WDialogGetInteger(field::kT4m)),
      .BSep = toolkit.WDialogGetReal(field::kBSep),
      .Btres = Store(toolkit.WDialogGetInteger(field::kBtres)),
      .Berr = 2.0F * toolkit.WDialogGetReal(field::kBerr),
      .DSPACE = toolkit.WDialogGetReal(field::kDSpace),
      .Apply = toolkit.WDialogGetCheckBox(field::kApply) == 1,
      .Verbose = toolkit.WDialogGetCheckBox(field::kVerbose) == 1,
      .MostInt = toolkit.WDialogGetCheckBox(field::kMostInt) == 1,
  };
}

/// Shows the form, filled from the settings, and reads it back. The check boxes always come up off, and a value that a
/// field refuses leaves the form's own default. On purpose: the field of Btres is filled from `btres_refill` instead.
void AskSettings(Ui& ui, std::int32_t btres_refill, ComparisonSettings& settings) {
  Toolkit& toolkit = ui.toolkit;
  toolkit.WDialogLoad(kComparisonForm);
  toolkit.WDialogSelect(kComparisonForm);
  FillForm(toolkit, settings, btres_refill);
  toolkit.WDialogShow(-1, -1, 0, kModal);
  settings = ReadForm(toolkit);
  toolkit.WDialogUnload(kComparisonForm);
}

void StartComparison(Comparison& c) {
  ComparisonSession& session = c.session;
  session.Settings = ComparisonSettings();
  session.Reference.low_count = 0;
  session.SelectorStatus = 0;
  if (!session.Log.IsOpen()) session.Log.Open(c.folder, kLogName);
  c.log.WriteTitle();
}

/// False after a cancel.
bool SelectFile(Comparison& c, std::string_view title) {
  ComparisonSession& session = c.session;
  session.Selector.SelectPeakFile(c.ui, title, session.Stem, session.StemLength, session.SelectorStatus);
  return session.SelectorStatus != kPeakFileCancelled;
}

/// The file that was selected. On purpose: nothing is said about a name that was too long; its stem is blank, and the
/// open fails.
std::string SelectedFile(const ComparisonSession& session) {
  const auto length = static_cast<std::size_t>(std::max(session.StemLength, 0));
  return std::string(session.Stem.First(length)).append(".LST");
}

std::string NoteDirectory(Comparison& c) {
  std::string directory = c.ui.toolkit.IOsDirName().substr(0, kDirectoryLength);
  c.session.SelectorStatus = static_cast<std::int32_t>(TrimRight(directory).size());
  return directory;
}

void ReadReference(Comparison& c, InputFile& file) {
  ComparisonSession& session = c.session;
  const float wavelength = ReadWavelength(file);
  session.TwoThetaLimit = FindTwoThetaLimit(wavelength, session.Settings.DSPACE);
  if (session.Settings.Apply) c.log.WriteTwoThetaLimit(session.TwoThetaLimit);
  ReadPeakList(file, session.Reference.list);
}

void PrepareReference(Comparison& c) {
  ComparisonSession& session = c.session;
  const PeakBands found = PreparePeaks(session.Settings, session.TwoThetaLimit, session.Reference);
  session.NotMatchedS = 0;
  c.log.WriteSettings(session.Settings, found.last_peak_count);
  c.log.WriteBandHeading();
  c.log.WriteBands(found);
  if (session.Settings.Verbose) c.log.WriteReferenceArea(session.Reference.area);
}

/// From the reference file to its sorted peaks.
Outcome LoadReference(Comparison& c) {
  c.session.Reference.list = PeakList();
  if (!SelectFile(c, "Find REFERENCE LST file")) return Outcome::kCancelled;
  InputFile file;
  const std::string name = SelectedFile(c.session);
  file.OpenRequired(c.folder, name);
  const std::string directory = NoteDirectory(c);
  c.log.WriteRunSeparator();
  c.log.WriteFileLine(" Reference ", name, directory);
  ReadReference(c, file);
  if (c.session.Reference.list.count == 0) {
    c.ui.ShowMessage("No Peaks in Ref.LST");
    return Outcome::kFinished;
  }
  PrepareReference(c);
  return Outcome::kGoOn;
}

void ScoreSample(Comparison& c) {
  ComparisonSession& session = c.session;
  session.Sample.low_count = 0;
  c.log.WriteBands(PreparePeaks(session.Settings, session.TwoThetaLimit, session.Sample));
  const PairScore score = ScorePair(session.Reference, session.Sample, session.TwoThetaLimit, session.Settings);
  session.NotMatchedS = score.NotMatchedS;
  if (session.Settings.Verbose) c.log.WriteScoreDetails(score, session.Settings.SAF);
  c.log.WriteResult(score);
}

/// False after a cancel.
bool CompareSample(Comparison& c) {
  if (!SelectFile(c, "Find Sample LST file")) return false;
  const std::string name = SelectedFile(c.session);
  c.log.WriteFileLine(" Sample Name ", name, NoteDirectory(c));
  InputFile file;
  file.OpenRequired(c.folder, name);
  ReadPeakList(file, c.session.Sample.list);
  if (c.session.Sample.list.count == 0) {
    c.ui.ShowMessage("No Peaks in Sample.LST");
  } else {
    ScoreSample(c);
  }
  return true;
}

/// One reference with its samples.
Outcome CompareWithReference(Comparison& c) {
  AskSettings(c.ui, c.session.NotMatchedS, c.session.Settings);
  if (const Outcome outcome = LoadReference(c); outcome != Outcome::kGoOn) return outcome;
  do {
    if (!CompareSample(c)) return Outcome::kCancelled;
  } while (AskYes(c.ui, "Compare another Powder LST file"));
  return AskYes(c.ui, "Start another Corvane run") ? Outcome::kGoOn : Outcome::kFinished;
}

}  // namespace

void ComparePatterns(Ui& ui, const Folder& folder, ComparisonSession& session) {
  PaneLines pane(ui.pane);
  Comparison c{ui, folder, session, ComparisonLog(session.Log, pane)};
  StartComparison(c);
  Outcome outcome = Outcome::kGoOn;
  while (outcome == Outcome::kGoOn) outcome = CompareWithReference(c);
  if (outcome == Outcome::kFinished) {
    session.Log.Close();
  } else {
    session.Log.Flush();
  }
}

void CloseComparisonLog(ComparisonSession& session) {
  session.Log.Close();
}

}  // namespace talven
