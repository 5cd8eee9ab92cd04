// The rows of an ING file. Its four readers agree neither on how many there are nor on what ends them; their rules
// stand beside each other here.
#pragma once

#include <cstdint>

#include "patterns/ing/IngHeader.h"
#include "textio/InputFile.h"

namespace talven {

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

struct IngRow {
  /// 2 theta, degrees.
  float Angle = 0.0F;
  float Intensity = 0.0F;
};

/// Steps between first and last angle as the writers of CIF and ING heads count them: the fraction is dropped with no
/// rounding before, so that the inexact stored form of a step shows.
std::int32_t CountCutSteps(const IngHeader& header);

/// How many rows a reader takes; below 1 it takes none.
std::int32_t CountIngRows(const IngRowRule& rule, const IngHeader& header);

/// Reads the next row. False where the rule ends the reading quietly; the numbers in front of one that cannot be read
/// are stored then. Throws FatalIoError where the rule makes that an error.
bool ReadIngRow(InputFile& ing, const IngRowRule& rule, IngRow& row);

}  // namespace talven
