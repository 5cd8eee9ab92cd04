// The dialect of ING (see IngFile.h) in which the simulator writes: each point may be followed by the indices of a
// reflection.
//
//     ABC (Talven)                    title
//        1.540000                     wavelength, Angstrom, 1X,F10.6
//           4.000                     first and last 2theta and step, degrees, 1X,F10.3
//          40.000
//           0.050
//       1000                          step time and number of points, 1X,I5
//        720
//         4.00          20.           1X,F8.2,3X,F10.0
//         4.05          57.     1   0   2       and 2X,3I4
#pragma once

#include <cstddef>

#include "crystal/Pattern.h"
#include "textio/TextOutput.h"

namespace talven {

/// Writes the title: 80 columns, control characters as blanks.
void WriteIngTitle(const Pattern& pattern, TextOutput& ing);

/// Writes lines 2 to 7 of a pattern with at least one point, a wavelength, a step and a step time.
void WriteSimulatedIngHead(const Pattern& pattern, TextOutput& ing);

/// Writes the rows of the points, one with each call, each with the last reflection that stands there.
class SimulatedIngRows {
 public:
  explicit SimulatedIngRows(const Pattern& pattern) : pattern_(pattern) {}
  void WriteNext(TextOutput& ing);

 private:
  const Pattern& pattern_;
  std::size_t point_ = 0;
  std::size_t reflection_ = 0;
};

}  // namespace talven
