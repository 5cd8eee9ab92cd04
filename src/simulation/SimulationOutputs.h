// The files of a simulated pattern: ING, CPI, XY and PAT with one value for each grid point, and the reflection list.
#pragma once

#include <string_view>

#include "crystal/ReflectionList.h"
#include "simulation/PatternGrid.h"
#include "textio/OutputFile.h"
#include "ui/LineBuffer.h"
#include "ui/Toolkit.h"

namespace talven {

struct PatternFiles {
  OutputFile ing;
  OutputFile cpi;
  OutputFile xy;
  OutputFile pat;
};

/// What the heads tell.
struct PatternHead {
  std::string_view TrimmedJobName;
  /// Angstrom.
  float Wavelength = 0.0F;
  /// Degrees.
  float Step = 0.0F;
  CalendarDate date;
  ClockTime time;
};

/// Writes one row `1X,3I4,F10.2,F11.2` (h, k, l, 2theta, F squared) for each reflection, and gives the highest 2theta,
/// 0 if there is none above.
float WriteReflectionList(const ReflectionList& list, OutputFile& file);

/// Writes the title line of ING and the heads of CPI, XY and PAT. On purpose: the start value of CPI and PAT is the
/// length of the title, and not an angle. The title and the numbers of the CPI head pass through the line buffer.
void WriteHeads(const PatternHead& head, const PatternGrid& grid, LineBuffer& line, PatternFiles& files);

/// Writes the head of ING and the rows of all four files. Raises points below 2.0 to that. PAT takes complete rows of
/// ten points only.
void WriteRows(const PatternHead& head, const ReflectionList& list, PatternGrid& grid, PatternFiles& files);

}  // namespace talven
