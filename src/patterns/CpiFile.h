// The CPI file of a simulated pattern: a head of ten lines and one whole count for each point.
//
//      SIETRONICS          10.000 and 40.000 in place of angles: the length of the title and a whole angle
//     12.000
//     40.000
//     0.050                step, degrees
//      Xx
//     1.540000             wavelength, Angstrom
//      7- 3-2024 at 14: 5: 9
//      1
//      ABC from shelx HKL using Talven
//      SCANDATA
//     57                   no row for a count of nine digits and more
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "crystal/Pattern.h"
#include "textio/CalendarTime.h"
#include "textio/TextOutput.h"

namespace talven {

/// What a head tells beside the pattern.
struct CpiHead {
  std::string_view job_name;
  /// Degrees, beyond the last point.
  double end_value = 0.0;
  CalendarDate date;
  ClockTime time;
};

/// A moment as heads tell it: `31-12-2024 at 12: 0: 0`.
std::string MomentText(const CalendarDate& date, const ClockTime& time);

/// Writes the head; the pattern needs a title, a step and a wavelength. On purpose: the start value is the length of
/// the title, and not an angle.
void WriteCpiHead(const CpiHead& head, const Pattern& pattern, TextOutput& cpi);

/// Writes the row of a point, counted from 0.
void WriteCpiRow(const Pattern& pattern, std::size_t point, TextOutput& cpi);

}  // namespace talven
