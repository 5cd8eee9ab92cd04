#include "patterns/IngToTxt.h"

#include "patterns/JobInput.h"
#include "patterns/ing/IngHeader.h"
#include "patterns/ing/IngRows.h"
#include "textio/Numbers.h"
#include "textio/OutputFile.h"

namespace talven {
namespace {

constexpr float kHighestCount = 999'000.0F;
constexpr std::size_t kLineLength = 80;
constexpr std::size_t kAngleWidth = 10;
constexpr std::size_t kCountWidth = 8;

/// Says why a pattern of so many points cannot be written; empty if it can.
std::string_view Refusal(std::int32_t count) {
  if (count > kLargestTxtPointCount) return "30,000 point limit";
  if (count < 1) return "NO Points in ING File";
  return {};
}

void ReadPoints(InputFile& ing, std::int32_t count, IngToTxtData& data) {
  IngRow row;
  for (std::int32_t i = 1; i <= count; ++i) {
    ReadIngRow(ing, kTxtRows, row);
    data.Angle[i] = row.Angle;
    data.Count[i] = row.Intensity > kHighestCount ? kHighestCount : row.Intensity;
  }
}

/// Ends a line that an item of this width would carry past the last column.
void MakeRoom(Record& line, std::size_t width, OutputFile& txt) {
  if (line.Text().size() + width <= kLineLength) return;
  txt.WriteLine(line);
  line.Clear();
}

void WriteAngles(const IngToTxtData& data, std::int32_t count, OutputFile& txt) {
  Record line;
  for (std::int32_t i = 1; i <= count; ++i) {
    MakeRoom(line, kAngleWidth, txt);
    line.A("\"").F(data.Angle[i], 7, 3).A(i == count ? "\" " : "\",");
  }
  txt.WriteLine(line);
}

void WriteCounts(const IngToTxtData& data, std::int32_t count, OutputFile& txt) {
  Record line;
  for (std::int32_t i = 1; i <= count; ++i) {
    MakeRoom(line, kCountWidth, txt);
    line.I(NearestWhole(data.Count[i]), 7).A(i == count ? " " : ",");
  }
  txt.WriteLine(line);
}

}  // namespace

void IngToTxt(Ui& ui, RunState& run, IngToTxtData& data) {
  InputFile ing;
  if (!OpenJobInput(ui, run, ".ING", ing)) return;
  OutputFile txt;
  txt.Open(Folder(), run.JobFile(".TXT"));
  const std::int32_t count = CountIngRows(kTxtRows, ReadIngHeader(ing));
  if (const std::string_view refusal = Refusal(count); !refusal.empty()) {
    txt.Close();
    ui.ShowMessage(refusal);
    return;
  }
  ReadPoints(ing, count, data);
  WriteAngles(data, count, txt);
  WriteCounts(data, count, txt);
  txt.Close();
  ui.ShowLine("");
  ui.ShowLine(run.JobFile(".TXT Written"));
}

}  // namespace talven
