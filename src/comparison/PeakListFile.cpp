#include "comparison/PeakListFile.h"

#include <algorithm>
#include <array>
#include <span>

#include "textio/FixedText.h"
#include "textio/FreeForm.h"
#include "textio/LineCleaner.h"

namespace talven {
namespace {

constexpr std::string_view kWavelengthKeyword = "   Radiation Wavelength";
constexpr std::string_view kTableKeyword = "   Marked";
constexpr float kDefaultWavelength = 1.54F;
constexpr std::size_t kShortestRow = 5;
constexpr std::size_t kTestedColumns = 20;

/// Reads on to the first line that begins with a keyword; false at the end of the file.
bool FindKeyword(TextInput& lst, std::string_view keyword, Text80& line) {
  std::string_view text;
  while (lst.ReadLine(text)) {
    line = text;
    if (line.StartsWith(keyword)) return true;
  }
  return false;
}

/// Letters and the signs after the digits in the code table. Characters beyond ASCII are not among them.
bool IsAboveDigits(char c) {
  return static_cast<signed char>(c) > '9';
}

/// Tells a row of numbers from headings and blank lines. All columns are looked at together, without an end at the
/// first letter.
bool IsPeakRow(Text80& line) {
  BlankControlCharacters(line);
  return line.Trimmed().size() >= kShortestRow && std::ranges::count_if(line.First(kTestedColumns), IsAboveDigits) == 0;
}

}  // namespace

float ReadWavelength(TextInput& lst) {
  float wavelength = kDefaultWavelength;
  Text80 line;
  if (!FindKeyword(lst, kWavelengthKeyword, line)) return wavelength;
  line.BlankFirst(kWavelengthKeyword.size());
  ParseReals(lst, line.View(), std::span(&wavelength, 1), "after Radiation Wavelength");
  return wavelength;
}

void ReadPeakList(TextInput& lst, PeakList& list) {
  list.count = 0;
  Text80 line;
  if (FindKeyword(lst, kTableKeyword, line)) {
    std::string_view text;
    while (lst.ReadLine(text)) {
      line = text;
      if (!IsPeakRow(line)) continue;
      std::array<float, 2> row{};
      ParseReals(lst, line.View(), row, "in a peak row");
      // On purpose: from the 101st on each row takes the place of the one before.
      list.count = std::min(list.count + 1, kPeakCapacity);
      list.TwoTheta[list.count] = row[0];
      list.Intensity[list.count] = row[1];
    }
  }
}

}  // namespace talven
