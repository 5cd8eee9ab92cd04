#include "comparison/ComparePatterns.h"

#include <algorithm>
#include <string>

#include "comparison/BuildBands.h"
#include "comparison/ComparisonReport.h"
#include "comparison/LargeDSpacing.h"
#include "comparison/NormalisePeaks.h"
#include "comparison/ReadPeakList.h"
#include "comparison/SortPeaksByIntensity.h"
#include "textio/FixedText.h"
#include "textio/InputFile.h"

namespace talven {
namespace {

constexpr std::string_view kLogName = "Talven_corvane.log";
constexpr std::size_t kDirectoryLength = 160;

struct Comparison {
  Ui& ui;
  ComparisonData& data;
  ComparisonReport report;
};

enum class Outcome { kGoOn, kCancelled, kFinished };

bool AskYes(Ui& ui, std::string_view question) {
  ui.toolkit.WMessageBox({.type = MessageType::kYesNo, .icon = MessageIcon::kQuestion, .text = question, .title = " "});
  return ui.toolkit.WDialogQuery(kOutcomeQuery) == 1;
}

void StartComparison(Comparison& c) {
  ComparisonData& data = c.data;
  data.Settings = ComparisonSettings();
  data.Pair.RefLowCount = 0;
  data.Pair.SampleLowCount = 0;
  data.SelectorStatus = 0;
  if (!data.Log.IsOpen()) data.Log.Open(Folder(), kLogName);
  c.report.WriteTitle();
}

/// False after a cancel.
bool SelectFile(Comparison& c, std::string_view title) {
  ComparisonData& data = c.data;
  data.Selector.SelectPeakFile(c.ui, title, data.Stem, data.StemLength, data.SelectorStatus);
  return data.SelectorStatus != kPeakFileCancelled;
}

/// The file that was selected. On purpose: nothing is said about a name that was too long; its stem is blank, and the
/// open fails.
std::string SelectedFile(const ComparisonData& data) {
  const auto length = static_cast<std::size_t>(std::max(data.StemLength, 0));
  return std::string(data.Stem.First(length)).append(".LST");
}

std::string TakeDirectory(Comparison& c) {
  std::string directory = c.ui.toolkit.IOsDirName().substr(0, kDirectoryLength);
  c.data.SelectorStatus = static_cast<std::int32_t>(TrimRight(directory).size());
  return directory;
}

/// Scales the peaks and counts those below the limit; gives the area.
float NormaliseAndCount(const ComparisonData& data, PeakList& peaks, std::int32_t& low_count) {
  if (data.Settings.Apply) low_count += CountPeaksBelow(peaks, data.Pair.TwoThetaLimit);
  return NormalisePeaks(peaks);
}

/// Each row is written as start and end, and lives on as centre and width.
void WriteBands(Comparison& c, BandTable& bands) {
  for (std::int32_t number = 1; number <= bands.count; ++number) {
    c.report.WriteBand(number, bands.rows[number]);
    ConvertToCentre(bands.rows[number]);
  }
}

void ReadReference(Comparison& c, InputFile& file) {
  const float wavelength = ReadWavelength(file);
  c.data.Pair.TwoThetaLimit = FindTwoThetaLimit(wavelength, c.data.Settings.DSPACE);
  if (c.data.Settings.Apply) c.report.WriteTwoThetaLimit(c.data.Pair.TwoThetaLimit);
  ReadPeakList(file, c.data.Cleaner, c.data.Pair.Reference);
}

void PrepareReference(Comparison& c) {
  const ComparisonSettings& settings = c.data.Settings;
  ComparedPair& pair = c.data.Pair;
  pair.RefArea = NormaliseAndCount(c.data, pair.Reference, pair.RefLowCount);
  const std::int32_t last_peak_count = BuildBands(pair.Reference, settings.BSep, settings.Btres, pair.ReferenceBands);
  c.data.NotMatchedS = 0;
  c.report.WriteSettings(settings, last_peak_count);
  c.report.WriteBandHeading();
  WriteBands(c, pair.ReferenceBands);
  if (settings.Verbose) c.report.WriteReferenceArea(pair.RefArea);
  SortPeaksByIntensity(pair.Reference);
}

/// From the reference file to its sorted peaks.
Outcome TakeReference(Comparison& c) {
  c.data.Pair.Reference = PeakList();
  if (!SelectFile(c, "Find REFERENCE LST file")) return Outcome::kCancelled;
  InputFile file;
  const std::string name = SelectedFile(c.data);
  file.OpenRequired(Folder(), name);
  const std::string directory = TakeDirectory(c);
  c.report.WriteRunSeparator();
  c.report.WriteFileLine(" Reference ", name, directory);
  ReadReference(c, file);
  if (c.data.Pair.Reference.count == 0) {
    c.ui.ShowMessage("No Peaks in Ref.LST");
    return Outcome::kFinished;
  }
  PrepareReference(c);
  return Outcome::kGoOn;
}

void ScoreSample(Comparison& c) {
  const ComparisonSettings& settings = c.data.Settings;
  ComparedPair& pair = c.data.Pair;
  pair.SampleLowCount = 0;
  NormaliseAndCount(c.data, pair.Sample, pair.SampleLowCount);
  BuildBands(pair.Sample, settings.BSep, settings.Btres, pair.SampleBands);
  WriteBands(c, pair.SampleBands);
  SortPeaksByIntensity(pair.Sample);
  const PairScore score = ScorePair(pair, settings);
  c.data.NotMatchedS = score.NotMatchedS;
  if (settings.Verbose) c.report.WriteScoreDetails(pair, score, settings.SAF);
  c.report.WriteResult(pair, score);
}

/// False after a cancel.
bool CompareSample(Comparison& c) {
  if (!SelectFile(c, "Find Sample LST file")) return false;
  const std::string name = SelectedFile(c.data);
  c.report.WriteFileLine(" Sample Name ", name, TakeDirectory(c));
  InputFile file;
  file.OpenRequired(Folder(), name);
  ReadPeakList(file, c.data.Cleaner, c.data.Pair.Sample);
  if (c.data.Pair.Sample.count == 0) {
    c.ui.ShowMessage("No Peaks in Sample.LST");
  } else {
    ScoreSample(c);
  }
  return true;
}

/// One reference with its samples.
Outcome CompareWithReference(Comparison& c) {
  AskComparisonSettings(c.ui, c.data.NotMatchedS, c.data.Settings);
  if (const Outcome outcome = TakeReference(c); outcome != Outcome::kGoOn) return outcome;
  do {
    if (!CompareSample(c)) return Outcome::kCancelled;
  } while (AskYes(c.ui, "Compare another Powder LST file"));
  return AskYes(c.ui, "Start another Corvane run") ? Outcome::kGoOn : Outcome::kFinished;
}

}  // namespace

void ComparePatterns(Ui& ui, ComparisonData& data) {
  Comparison c{ui, data, ComparisonReport(data.Log, ui.pane)};
  StartComparison(c);
  Outcome outcome = Outcome::kGoOn;
  while (outcome == Outcome::kGoOn) outcome = CompareWithReference(c);
  if (outcome == Outcome::kFinished) {
    data.Log.Close();
  } else {
    data.Log.Flush();
  }
}

void CloseComparisonLog(ComparisonData& data) {
  data.Log.Close();
}

}  // namespace talven
