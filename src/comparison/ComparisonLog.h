// The log of a comparison.
//
//     Talven_corvane LOG File                                          once for each comparison
//     *****************************************                        then for each reference
//     Reference  REF.LST /data/quartz                                  80 characters
//     2THETA    12.6352                                                limit of the large d-spacings, if applied
//     AngTol NMF  SAF  T4M  BSep  Btres Berr DSPACE
//     0.30  0.33  0.25   2  2.80      3 1.50  7.00
//          Bno. Start   End   Max.pk Max.cnt    Tot.cnt  Pk.no.
//    Band    1  10.00  11.00  49500.  10.00      74250.   2.          for each band
//     Reference Area     21780.0                                       verbose only
//     Sample Name S1.LST /data/quartz                                  then for each sample
//    Band    1  10.10  11.10  49500.  10.10      74250.   2.
//        Rno. Sno.  M1    M2    BMATCH T4R+S RNM RNM4 BN
//        5    5 1.0000 1.0000  1.000   4.   0.   0.   2
//
// Most lines are told to a listener as well, who shows them while the comparison goes on. Headings and file lines are
// free-form and so begin with one more blank in the log. On purpose, the heading's Max.pk stands over the highest
// intensity of a band and Max.cnt over its position: the names are kept as they always were.
#pragma once

#include <string_view>

#include "comparison/ComparisonSettings.h"
#include "comparison/PeakBands.h"
#include "comparison/ScorePair.h"
#include "textio/TextOutput.h"

namespace talven {

class LineListener {
 public:
  virtual ~LineListener() = default;
  virtual void Receive(std::string_view line) = 0;
};

/// Log and listener outlive the writer. Where nothing else is said a line goes to both, to the log first.
class ComparisonLog {
 public:
  ComparisonLog(TextOutput& log, LineListener& listener) : log_(log), listener_(listener) {}

  /// The log's first line, which is not told.
  void WriteTitle();
  /// Parts one run from the next.
  void WriteRunSeparator();
  /// A file and its folder, cut to 80 characters together. `label` is " Reference " or " Sample Name ".
  void WriteFileLine(std::string_view label, std::string_view file_name, std::string_view directory);
  /// The limit in degrees, which is not told.
  void WriteTwoThetaLimit(float limit);
  /// Heading and values; told first. On purpose: the column of Btres holds the last peak count of the band scan.
  void WriteSettings(const ComparisonSettings& settings, std::int32_t last_peak_count);
  void WriteBandHeading();
  /// The bands, counted from 1.
  void WriteBands(const PeakBands& found);
  void WriteReferenceArea(float RefArea);
  /// The verbose lines of one sample; most stand in the log alone.
  void WriteScoreDetails(const PairScore& score, float SAF);
  /// Heading and scores; told first.
  void WriteResult(const PairScore& score);

 private:
  void WriteHeadedRow(std::string_view heading, std::string_view row);
  void WriteBand(std::int32_t number, const PeakBand& band);
  void WritePeakScoreDetails(const PairScore& score);
  void WriteAreaDetails(const PairScore& score, float SAF);

  TextOutput& log_;
  LineListener& listener_;
};

}  // namespace talven
