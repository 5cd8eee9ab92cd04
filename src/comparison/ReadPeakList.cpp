#include "comparison/ReadPeakList.h"

#include <algorithm>
#include <array>
#include <span>

#include "textio/FreeForm.h"

namespace talven {
namespace {

constexpr std::string_view kWavelengthKeyword = "   Radiation Wavelength";
constexpr std::string_view kTableKeyword = "   Marked";
constexpr float kDefaultWavelength = 1.54F;
constexpr std::int32_t kShortestRow = 5;
constexpr std::size_t kTestedColumns = 20;

/// Reads on to the first line that begins with a keyword; false at the end of the file.
bool FindKeyword(InputFile& file, std::string_view keyword, Text80& line) {
  std::string_view text;
  while (file.ReadLine(text)) {
    line = text;
    if (line.StartsWith(keyword)) return true;
  }
  return false;
}

/// Letters and the signs behind the digits in the code table. Characters beyond ASCII are not among them.
bool IsAboveDigits(char c) {
  return static_cast<signed char>(c) > '9';
}

/// Tells a row of numbers from headings and blank lines.
bool IsPeakRow(LineCleaner& cleaner, Text80& line) {
  const std::int32_t length = cleaner.CleanTextLine(line);
  // On a blank line that length is stale. All columns are looked at together, without an end at the first letter.
  return length >= kShortestRow && !line.Trimmed().empty() &&
         std::ranges::count_if(line.First(kTestedColumns), IsAboveDigits) == 0;
}

}  // namespace

float ReadWavelength(InputFile& file) {
  float wavelength = kDefaultWavelength;
  Text80 line;
  if (!FindKeyword(file, kWavelengthKeyword, line)) return wavelength;
  line.BlankFirst(kWavelengthKeyword.size());
  ParseReals(file, line.View(), std::span(&wavelength, 1), "after Radiation Wavelength");
  return wavelength;
}

void ReadPeakList(InputFile& file, LineCleaner& cleaner, PeakList& list) {
  list.count = 0;
  Text80 line;
  if (FindKeyword(file, kTableKeyword, line)) {
    std::string_view text;
    while (file.ReadLine(text)) {
      line = text;
      if (!IsPeakRow(cleaner, line)) continue;
      std::array<float, 2> row{};
      ParseReals(file, line.View(), row, "in a peak row");
      // On purpose: from the 101st on each row takes the place of the one before.
      list.count = std::min(list.count + 1, kPeakCapacity);
      list.TwoTheta[list.count] = row[0];
      list.Intensity[list.count] = row[1];
    }
  }
  file.Close();
}

}  // namespace talven
