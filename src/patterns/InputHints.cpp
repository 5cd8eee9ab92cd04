#include "patterns/InputHints.h"

#include <algorithm>
#include <array>

#include "patterns/formats/FormatText.h"
#include "patterns/formats/UnscramblerTable.h"
#include "textio/FieldInput.h"
#include "textio/FixedText.h"

namespace talven {
namespace {

constexpr std::string_view kConvert = "; talven-run convert --to ing brings it in";
constexpr std::size_t kBeginning = 4096;
constexpr std::size_t kColumnsRead = 80;

/// The names of option 2, each at the start of its line.
constexpr std::array<std::string_view, 5> kNames = {"_diffraction_radiation_wavelength", "_pd_meas_2theta_range_min",
                                                    "_pd_meas_2theta_range_max", "_pd_meas_2theta_range_inc",
                                                    "_pd_meas_step_count_time"};

std::string Hint(std::string_view name, std::string_view text) {
  return std::string(name).append(": ").append(text).append(kConvert);
}

/// True if all five names are there with the loop directly after the last and a number in it.
bool HoldsOwnPattern(TextInput& cif) {
  std::array<bool, kNames.size()> seen{};
  std::string_view line;
  while (!std::ranges::all_of(seen, [](bool s) { return s; })) {
    if (!cif.ReadLine(line)) return false;
    for (std::size_t i = 0; i < kNames.size(); ++i) seen[i] = seen[i] || line.starts_with(kNames[i]);
  }
  return cif.ReadLine(line) && line.starts_with("loop_") && cif.ReadLine(line) &&
         line.starts_with("    _pd_meas_counts_total") && cif.ReadLine(line) && LeadingNumber(line);
}

/// X and Y as option 9 parts them: by blanks, commas, tabs and slashes.
std::size_t CountLeadingNumbers(std::string_view line) {
  constexpr std::string_view kSeparators = " ,\t\r/";
  std::size_t count = 0;
  while (count < 2) {
    const std::size_t begin = std::min(line.find_first_not_of(kSeparators), line.size());
    const std::size_t end = std::min(line.find_first_of(kSeparators, begin), line.size());
    if (!ReadReal<double>(line.substr(begin, end - begin))) break;
    ++count;
    line.remove_prefix(end);
  }
  return count;
}

/// A comma between digits, in a line that has gaps between its columns and no point.
bool HasDecimalComma(std::string_view line) {
  const std::string_view text = TrimSpace(line);
  if (text.find_first_of(" \t;") == std::string_view::npos || text.find('.') != std::string_view::npos) return false;
  for (std::size_t at = text.find(','); at != std::string_view::npos; at = text.find(',', at + 1))
    if (at > 0 && at + 1 < text.size() && text[at - 1] >= '0' && text[at - 1] <= '9' && text[at + 1] >= '0' &&
        text[at + 1] <= '9')
      return true;
  return false;
}

}  // namespace

std::optional<std::string> HintForCif(std::string_view name, std::string_view text) {
  TextInput cif{std::string(name), std::string(text)};
  if (HoldsOwnPattern(cif)) return std::nullopt;
  for (const std::string_view word : {"_pd_meas", "_pd_proc", "_pd_calc"})
    if (FindNoCase(text, word) != std::string_view::npos)
      return Hint(name, "holds its pattern under other names than option 2 reads");
  return std::string(name) + ": holds no powder pattern; talven-run info tells what it is, and talven-run convert " +
         "--to ing brings in other files with one";
}

std::optional<std::string> HintForTxt(std::string_view name, std::string_view text) {
  if (LooksLikeUnscramblerTable(text)) return Hint(name, "is the table that option 8 writes, not one of X and Y");
  // What is wrong with such a table is wrong from its beginning on; later lines the reader itself tells of.
  if (text.size() > kBeginning) text = text.substr(0, text.rfind('\n', kBeginning));
  TextInput txt{std::string(name), std::string(text)};
  for (std::string_view line; txt.ReadLine(line);) {
    line = line.substr(0, kColumnsRead);
    if (line.starts_with("REM")) continue;
    if (HasDecimalComma(line)) return Hint(name, "has decimal commas, which option 9 takes for gaps between numbers");
    if (CountLeadingNumbers(line) < 2)
      return Hint(name, "line " + std::to_string(txt.LineNumber()) + " is neither REM nor X and Y, as option 9 reads");
  }
  return std::nullopt;
}

}  // namespace talven
