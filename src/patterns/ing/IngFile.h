// An ING pattern file, one powder pattern as plain text:
//
//     ABC (Talven)               title, any text
//        1.540000                wavelength, Angstrom
//           4.000                first 2 theta, degrees
//          40.000                last 2 theta, degrees
//           0.050                step, degrees
//       1000                     counting time of a step, in the unit of the source
//        721                     number of points
//         4.00          20.      a point: 2 theta in degrees, then counts
//         4.05          57.    1   0   2
//
// Columns mean nothing to a reader: each number stands first on its line, free form. To other programs they may, so
// that each writer keeps its own.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "textio/FatalIoError.h"
#include "textio/TextInput.h"
#include "textio/TextOutput.h"

namespace talven {

/// Lines 2 to 7.
struct IngHeader {
  float Wavelength = 0.0F;
  float FirstAngle = 0.0F;
  float LastAngle = 0.0F;
  float Step = 0.0F;
  float StepTime = 0.0F;
  std::int32_t PointCount = 0;
};

struct IngRow {
  /// 2 theta, degrees.
  float Angle = 0.0F;
  float Intensity = 0.0F;
};

/// A pattern as a file holds it. Nothing in the head has to agree with the rows.
struct IngPattern {
  IngHeader header;
  std::vector<IngRow> rows;
};

// The four readers agree neither on how many rows there are nor on what ends them; their rules stand beside each other
// here.

enum class IngRowCount {
  kAsWritten,     // line 7
  kCutSteps,      // steps between the angles of the head, the fraction dropped
  kNearestSteps,  // the same, rounded to a stored real and then to the nearest whole number
};

enum class IngRowEnd { kFatal, kQuiet };

struct IngRowRule {
  IngRowCount count;
  IngRowEnd at_end_of_file;
  IngRowEnd at_unreadable_row;
};

// On purpose: from 4 to 40 degrees in steps of 0.05, with 721 rows written, these take 721, 719, 719 and 720 of them.
inline constexpr IngRowRule kReformatRows{IngRowCount::kAsWritten, IngRowEnd::kFatal, IngRowEnd::kQuiet};
inline constexpr IngRowRule kCifRows{IngRowCount::kCutSteps, IngRowEnd::kQuiet, IngRowEnd::kFatal};
inline constexpr IngRowRule kAscRows{IngRowCount::kCutSteps, IngRowEnd::kQuiet, IngRowEnd::kFatal};
inline constexpr IngRowRule kTxtRows{IngRowCount::kNearestSteps, IngRowEnd::kFatal, IngRowEnd::kFatal};

/// Reads the title and lines 2 to 7. Throws FatalIoError at a line that is not there or holds no number.
IngHeader ReadIngHeader(TextInput& ing);

/// Steps between first and last angle as the writers of CIF and ING heads count them: the fraction is dropped with no
/// rounding before, so that the inexact stored form of a step shows.
std::int32_t CountCutSteps(const IngHeader& header);

/// How many rows a reader takes; below 1 it takes none.
std::int32_t CountIngRows(const IngRowRule& rule, const IngHeader& header);

/// Reads the next row. False where the rule ends the reading quietly; the numbers in front of one that cannot be read
/// are stored then. Throws FatalIoError where the rule makes that an error.
bool ReadIngRow(TextInput& ing, const IngRowRule& rule, IngRow& row);

struct IngRows {
  std::vector<IngRow> rows;
  /// What ended the reading where the rule makes that an error.
  std::optional<FatalIoError> error;
};

/// Reads the rows after a head, as many of them as can be read.
IngRows ReadIngRows(TextInput& ing, const IngRowRule& rule, const IngHeader& header);

/// The layout of a reformatted pattern and of one made from an XY file: title 3X,A20, then 3X with F8.4, F12.3 three
/// times, F12.0 and I10, and rows 1X,F8.2,3X,F10.0. `job_name` has all its 20 characters.
void WriteIng(TextOutput& ing, std::string_view job_name, const IngPattern& pattern);

/// The layout of a pattern made from a CIF: the title as it is, 3X,F10.4 five times, 3X,I14, and rows 3X,F10.3,F12.0.
/// Without a header the title is all.
void WriteIngOfCif(TextOutput& ing, std::string_view title, const std::optional<IngHeader>& header,
                   std::span<const IngRow> rows);

}  // namespace talven
