#include "patterns/UnscramblerTxt.h"

#include <algorithm>

#include "textio/Numbers.h"
#include "textio/Record.h"

namespace talven {
namespace {

constexpr float kHighestCount = 999'000.0F;
constexpr std::size_t kLineLength = 80;
constexpr std::size_t kAngleWidth = 10;
constexpr std::size_t kCountWidth = 8;

/// Ends a line that an item of this width would carry past the last column.
void MakeRoom(Record& line, std::size_t width, TextOutput& txt) {
  if (line.Text().size() + width <= kLineLength) return;
  txt.WriteLine(line);
  line.Clear();
}

}  // namespace

UnscramblerTable MakeUnscramblerTable(std::span<const IngRow> rows) {
  UnscramblerTable table;
  table.angles.reserve(rows.size());
  table.counts.reserve(rows.size());
  for (const IngRow& row : rows) {
    table.angles.push_back(row.Angle);
    table.counts.push_back(NearestWhole(row.Intensity > kHighestCount ? kHighestCount : row.Intensity));
  }
  return table;
}

void WriteUnscramblerTxt(TextOutput& txt, const UnscramblerTable& table) {
  const std::size_t count = table.angles.size();
  Record line;
  for (std::size_t i = 1; i <= count; ++i) {
    MakeRoom(line, kAngleWidth, txt);
    line.A("\"").F(table.angles[i - 1], 7, 3).A(i == count ? "\" " : "\",");
  }
  txt.WriteLine(line);
  line.Clear();
  for (std::size_t i = 1; i <= count; ++i) {
    MakeRoom(line, kCountWidth, txt);
    line.I(table.counts[i - 1], 7).A(i == count ? " " : ",");
  }
  txt.WriteLine(line);
}

}  // namespace talven
