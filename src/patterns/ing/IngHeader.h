// The head of an ING pattern file, one powder pattern as plain text:
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
// Columns mean nothing to a reader: each number stands first on its line, free form.
#pragma once

#include <cstdint>

#include "textio/InputFile.h"

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

/// Reads the title and lines 2 to 7. Throws FatalIoError at a line that is not there or holds no number.
IngHeader ReadIngHeader(InputFile& ing);

}  // namespace talven
