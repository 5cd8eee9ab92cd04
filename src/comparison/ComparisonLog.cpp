#include "comparison/ComparisonLog.h"

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

void ComparisonLog::WriteTitle() {
  FreeFormLine(log_).Text(" Talven_corvane LOG File").End();
}

void ComparisonLog::WriteRunSeparator() {
  FreeFormLine(log_).Text(" *****************************************").End();
  listener_.Receive(" ++++++++++++++++++++++++++++++++++++++++");
}

void ComparisonLog::WriteFileLine(std::string_view label, std::string_view file_name, std::string_view directory) {
  const Text80 line(Record().A(label).A(file_name).X(1).A(directory).Text());
  FreeFormLine(log_).Text(line.View()).End();
  listener_.Receive(line.View());
}

void ComparisonLog::WriteTwoThetaLimit(float limit) {
  FreeFormLine(log_).Text(" 2THETA").Real(limit).End();
}

void ComparisonLog::WriteHeadedRow(std::string_view heading, std::string_view row) {
  listener_.Receive(heading);
  listener_.Receive(row);
  FreeFormLine(log_).Text(heading).End();
  log_.WriteLine(row);
}

void ComparisonLog::WriteSettings(const ComparisonSettings& settings, std::int32_t last_peak_count) {
  Record row;
  row.X(2).F(settings.AngTol, 4, 2).X(2).F(settings.NMF, 4, 2).X(2).F(settings.SAF, 4, 2);
  row.I(settings.WholeT4M(), 4).X(1).F(settings.BSep, 5, 2).I(last_peak_count, 7);
  row.F(settings.ShownBerr(), 5, 2).F(settings.DSPACE, 6, 2);
  WriteHeadedRow(" AngTol NMF  SAF  T4M  BSep  Btres Berr DSPACE", row.Text());
}

void ComparisonLog::WriteBandHeading() {
  constexpr std::string_view kHeading = "      Bno. Start   End   Max.pk Max.cnt    Tot.cnt  Pk.no.";
  FreeFormLine(log_).Text(kHeading).End();
  listener_.Receive(kHeading);
}

void ComparisonLog::WriteBands(const PeakBands& found) {
  std::int32_t number = 0;
  for (const PeakBand& band : found.bands) WriteBand(++number, band);
}

void ComparisonLog::WriteBand(std::int32_t number, const PeakBand& band) {
  Record row;
  row.A(" Band ").I(number, 4).F(band.Start, 7, 2).F(band.End, 7, 2);
  row.F(band.HighestIntensity, 8, 0).F(band.HighestPosition, 7, 2);
  row.F(band.IntensitySum, 12, 0).F(band.PeakCount, 5, 0);
  log_.WriteLine(row);
  listener_.Receive(row.Text());
}

void ComparisonLog::WriteReferenceArea(float RefArea) {
  FreeFormLine(log_).Text(" Reference Area ").Real(RefArea).End();
  listener_.Receive(Record().A("Reference Area ").G(RefArea).Text());
}

void ComparisonLog::WriteScoreDetails(const PairScore& score, float SAF) {
  FreeFormLine(log_).Text(" Reference Peaks ").Integer(score.reference_count).End();
  FreeFormLine(log_).Text(" Sample    Peaks ").Integer(score.sample_count).End();
  WritePeakScoreDetails(score);
  WriteAreaDetails(score, SAF);
}

void ComparisonLog::WritePeakScoreDetails(const PairScore& score) {
  // On purpose: without decimals the initial score reads 0 or 1.
  log_.WriteLine(Record().A(kInitialLabel).F(score.InitialRMATCH, 4, 0));
  log_.WriteLine(Record().A(kStrongPairsLabel).F(score.T4RS, 4, 0));
  log_.WriteLine(Record().A(kUnmatchedLabel).F(score.RNM, 4, 0));
  log_.WriteLine(Record().A(kStrongUnmatchedLabel).F(score.RNM4, 4, 0));
  if (score.has_few_strong) FreeFormLine(log_).Text("#Less than 5 in R and S").End();
  if (score.has_many_unmatched) FreeFormLine(log_).Text("# S not M >.33 R ").Real(score.UnmatchedFraction).End();
  constexpr std::string_view kNotMatched = " Not Matched R ";
  FreeFormLine(log_).Text(kNotMatched).Integer(score.NotMatchedR).Text(" S ").Integer(score.NotMatchedS).End();
  listener_.Receive(Record().A(kNotMatched).I(score.NotMatchedR, 12).A(" S ").I(score.NotMatchedS, 12).Text());
}

void ComparisonLog::WriteAreaDetails(const PairScore& score, float SAF) {
  FreeFormLine(log_).Text(" Sample Area ").Real(score.SAREA).End();
  FreeFormLine(log_).Text(" SAREA, Fract. FLimit").Real(score.SAREA).Real(score.Fract).Real(SAF).End();
  listener_.Receive(Record().A(" SAREA, Fract. FLimit ").G(score.SAREA).G(score.Fract).G(SAF).Text());
}

void ComparisonLog::WriteResult(const PairScore& score) {
  Record row;
  row.X(1).I(score.reference_count, 5).I(score.sample_count, 5);
  row.F(score.RMATCH, 7, 4).F(score.M2, 7, 4).F(score.BMATCH, 7, 3);
  row.X(1).F(score.T4RS, 4, 0).X(1).F(score.RNM, 4, 0).X(1).F(score.RNM4, 4, 0);
  row.I(score.sample_band_count, 4);
  WriteHeadedRow("    Rno. Sno.  M1    M2    BMATCH T4R+S RNM RNM4 BN", row.Text());
}

}  // namespace talven
