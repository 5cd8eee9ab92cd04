#include "patterns/PatFile.h"

#include "textio/FreeForm.h"
#include "textio/Numbers.h"

namespace talven {

void WritePatHead(const Pattern& pattern, double end_value, TextOutput& pat) {
  FreeFormLine(pat).Text("Mirade/Talven Shelx HKL to RIET7 DAT").End();
  for (int line = 2; line <= 4; ++line) FreeFormLine(pat).Text(" ").End();
  const auto start_value = static_cast<double>(pattern.title.size());
  pat.WriteLine(Record().F(start_value, 8, 3).F(pattern.step.value_or(0.0), 8, 3).F(end_value, 8, 3));
}

void WritePatRows(const Pattern& pattern, TextOutput& pat) {
  constexpr std::size_t kColumns = 10;
  for (std::size_t first = 0; first + kColumns <= pattern.PointCount(); first += kColumns) {
    Record row;
    for (std::size_t i = first; i < first + kColumns; ++i) row.I(Truncate(pattern.counts[i] + 0.5), 8);
    pat.WriteLine(row);
  }
}

}  // namespace talven
