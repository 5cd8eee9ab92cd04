#include "patterns/CpiFile.h"

#include <array>
#include <charconv>

#include "textio/FixedText.h"
#include "textio/FreeForm.h"
#include "textio/Numbers.h"

namespace talven {
namespace {

constexpr std::int32_t kCountLimit = 100'000'000;

/// Writes a number without the blanks ahead of it.
void WriteLeftJustified(const Record& number, TextOutput& cpi) {
  cpi.WriteLine(Trim(number.Text()));
}

void WriteFreeFormText(std::string_view text, TextOutput& cpi) {
  FreeFormLine(cpi).Text(text).End();
}

}  // namespace

std::string MomentText(const CalendarDate& date, const ClockTime& time) {
  Record text;
  text.I(date.day, 2).A("-").I(date.month, 2).A("-").I(date.year, 4).A(" at ");
  text.I(time.hour, 2).A(":").I(time.minute, 2).A(":").I(time.second, 2);
  return std::string(text.Text());
}

void WriteCpiHead(const CpiHead& head, const Pattern& pattern, TextOutput& cpi) {
  WriteFreeFormText("SIETRONICS", cpi);
  for (const double value : {static_cast<double>(pattern.title.size()), head.end_value, pattern.step.value_or(0.0)})
    WriteLeftJustified(Record().F(value, 8, 3), cpi);
  WriteFreeFormText("Xx", cpi);
  WriteLeftJustified(Record().F(pattern.wavelength.value_or(0.0), 9, 6), cpi);
  cpi.WriteLine(MomentText(head.date, head.time));
  WriteFreeFormText("1", cpi);
  FreeFormLine(cpi).Text(head.job_name).Text(" from shelx HKL using Talven").End();
  WriteFreeFormText("SCANDATA", cpi);
}

void WriteCpiRow(const Pattern& pattern, std::size_t point, TextOutput& cpi) {
  const std::int32_t count = Truncate(pattern.counts[point] + 0.5);
  if (count >= kCountLimit) return;
  std::array<char, 16> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), count).ptr;
  cpi.WriteLine(std::string_view(digits.data(), end));
}

}  // namespace talven
