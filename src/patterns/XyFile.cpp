#include "patterns/XyFile.h"

#include "textio/FreeForm.h"

namespace talven {

void WriteXyHead(TextOutput& xy) {
  FreeFormLine(xy).Text("REM Mirade/Talven Shelx HKL to powder XY").End();
}

void WriteXyRow(const Pattern& pattern, std::size_t point, TextOutput& xy) {
  xy.WriteLine(Record().X(1).G(pattern.two_theta[point]).G(pattern.counts[point]));
}

}  // namespace talven
