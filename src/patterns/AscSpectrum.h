// An ASCII spectrum of a SPECTRUM ONE infra-red instrument: 36 lines of head, then X in thousandths of a degree and Y
// with the strongest point at 2.
//
//     PE IR                   SPECTRUM    ASCII
//     ...
//     4000            first angle, step and number of points
//     50
//     719
//     ...
//     #DATA
//     4000 1.234568
#pragma once

#include <cstdint>
#include <vector>

#include "textio/TextInput.h"
#include "textio/TextOutput.h"

namespace talven {

/// Angles in thousandths of a degree.
struct AscSpectrum {
  struct Point {
    std::int32_t X = 0;
    float Y = 0.0F;
  };
  std::int32_t FirstAngle = 0;
  std::int32_t Step = 0;
  /// As the head of the pattern has them; there may be fewer.
  std::int32_t PointCount = 0;
  std::vector<Point> points;
};

/// Reads an ING pattern as a spectrum. One without a positive count has 0 for every Y. Throws FatalIoError.
AscSpectrum ReadIngAsSpectrum(TextInput& ing);

void WriteAscSpectrum(TextOutput& asc, const AscSpectrum& spectrum);

}  // namespace talven
