#include "comparison/ComparisonReport.h"

#include <cmath>

#include "textio/FixedText.h"
#include "textio/FreeForm.h"

namespace talven {
namespace {

/// The labels count to five, but the tests are made on the four strongest.
constexpr std::string_view kInitialLabel = "  Initial RMATCH  ";
constexpr std::string_view kStrongPairsLabel = "  In T5 of R and S";
/// On purpose: it says the reverse of what is counted, reference peaks without a partner.
constexpr std::string_view kUnmatchedLabel = "  In S not in R   ";
constexpr std::string_view kStrongUnmatchedLabel = "  T5 R not matched";

}  // namespace

void ComparisonReport::ShowInPane(std::string_view text) {
  pane_.WriteTextLineFrom(Text80(text), 1);
}

void ComparisonReport::WriteTitle() {
  FreeFormLine(log_).Text(" Talven_corvane LOG File").End();
}

void ComparisonReport::WriteRunSeparator() {
  FreeFormLine(log_).Text(" *****************************************").End();
  ShowInPane(" ++++++++++++++++++++++++++++++++++++++++");
}

void ComparisonReport::WriteFileLine(std::string_view label, std::string_view file_name, std::string_view directory) {
  const Text80 line(Record().A(label).A(file_name).X(1).A(directory).Text());
  FreeFormLine(log_).Text(line.View()).End();
  ShowInPane(line.View());
}

void ComparisonReport::WriteTwoThetaLimit(float limit) {
  FreeFormLine(log_).Text(" 2THETA").Real(limit).End();
}

void ComparisonReport::WriteHeadedRow(std::string_view heading, std::string_view row) {
  ShowInPane(heading);
  ShowInPane(row);
  FreeFormLine(log_).Text(heading).End();
  log_.WriteLine(row);
}

void ComparisonReport::WriteSettings(const ComparisonSettings& settings, std::int32_t last_peak_count) {
  Record row;
  row.X(2).F(settings.AngTol, 4, 2).X(2).F(settings.NMF, 4, 2).X(2).F(settings.SAF, 4, 2);
  row.I(settings.WholeT4M(), 4).X(1).F(settings.BSep, 5, 2).I(last_peak_count, 7);
  row.F(settings.ShownBerr(), 5, 2).F(settings.DSPACE, 6, 2);
  WriteHeadedRow(" AngTol NMF  SAF  T4M  BSep  Btres Berr DSPACE", row.Text());
}

void ComparisonReport::WriteBandHeading() {
  constexpr std::string_view kHeading = "      Bno. Start   End   Max.pk Max.cnt    Tot.cnt  Pk.no.";
  FreeFormLine(log_).Text(kHeading).End();
  ShowInPane(kHeading);
}

void ComparisonReport::WriteBand(std::int32_t number, const PeakBand& band) {
  Record row;
  row.A(" Band ").I(number, 4).F(band.Start, 7, 2).F(band.End, 7, 2);
  row.F(band.HighestIntensity, 8, 0).F(band.HighestPosition, 7, 2);
  row.F(band.IntensitySum, 12, 0).F(band.PeakCount, 5, 0);
  log_.WriteLine(row);
  ShowInPane(row.Text());
}

void ComparisonReport::WriteReferenceArea(float RefArea) {
  FreeFormLine(log_).Text(" Reference Area ").Real(RefArea).End();
  ShowInPane(Record().A("Reference Area ").G(RefArea).Text());
}

void ComparisonReport::WriteScoreDetails(const ComparedPair& pair, const PairScore& score, float SAF) {
  FreeFormLine(log_).Text(" Reference Peaks ").Integer(pair.Reference.count).End();
  FreeFormLine(log_).Text(" Sample    Peaks ").Integer(pair.Sample.count).End();
  WritePeakScoreDetails(score);
  WriteAreaDetails(score, SAF);
}

void ComparisonReport::WritePeakScoreDetails(const PairScore& score) {
  // On purpose: without decimals the initial score reads 0 or 1.
  log_.WriteLine(Record().A(kInitialLabel).F(score.InitialRMATCH, 4, 0));
  log_.WriteLine(Record().A(kStrongPairsLabel).F(score.T4RS, 4, 0));
  log_.WriteLine(Record().A(kUnmatchedLabel).F(score.RNM, 4, 0));
  log_.WriteLine(Record().A(kStrongUnmatchedLabel).F(score.RNM4, 4, 0));
  if (score.has_few_strong) FreeFormLine(log_).Text("#Less than 5 in R and S").End();
  if (score.has_many_unmatched) FreeFormLine(log_).Text("# S not M >.33 R ").Real(score.UnmatchedFraction).End();
  constexpr std::string_view kNotMatched = " Not Matched R ";
  FreeFormLine(log_).Text(kNotMatched).Integer(score.NotMatchedR).Text(" S ").Integer(score.NotMatchedS).End();
  ShowInPane(Record().A(kNotMatched).I(score.NotMatchedR, 12).A(" S ").I(score.NotMatchedS, 12).Text());
}

void ComparisonReport::WriteAreaDetails(const PairScore& score, float SAF) {
  FreeFormLine(log_).Text(" Sample Area ").Real(score.SAREA).End();
  FreeFormLine(log_).Text(" SAREA, Fract. FLimit").Real(score.SAREA).Real(score.Fract).Real(SAF).End();
  ShowInPane(Record().A(" SAREA, Fract. FLimit ").G(score.SAREA).G(score.Fract).G(SAF).Text());
}

void ComparisonReport::WriteResult(const ComparedPair& pair, const PairScore& score) {
  // Without a reference band there is no band score; the column shows that as 0.
  const float shown_bmatch = std::isnan(score.BMATCH) ? 0.0F : score.BMATCH;
  Record row;
  row.X(1).I(pair.Reference.count, 5).I(pair.Sample.count, 5);
  row.F(score.RMATCH, 7, 4).F(score.M2, 7, 4).F(shown_bmatch, 7, 3);
  row.X(1).F(score.T4RS, 4, 0).X(1).F(score.RNM, 4, 0).X(1).F(score.RNM4, 4, 0);
  row.I(pair.SampleBands.count, 4);
  WriteHeadedRow("    Rno. Sno.  M1    M2    BMATCH T4R+S RNM RNM4 BN", row.Text());
}

}  // namespace talven
