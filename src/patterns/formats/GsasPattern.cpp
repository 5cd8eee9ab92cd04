#include "patterns/formats/GsasPattern.h"

#include <algorithm>
#include <cmath>

#include "patterns/formats/FinishPattern.h"
#include "patterns/formats/FormatText.h"
#include "patterns/formats/RemarkedWavelength.h"
#include "textio/FieldInput.h"
#include "textio/FixedText.h"

namespace talven {
namespace {

constexpr std::size_t kHeadLines = 50;
constexpr std::size_t kLineLength = 80;
constexpr double kHundredths = 100.0;

bool IsBankLine(std::string_view line) {
  return StartsIgnoringCase(line, "bank") && CountWords(line) >= 5;
}

/// What a BANK line tells; angles in degrees.
struct Bank {
  double point_count = 0.0;
  double first = 0.0;
  double step = 0.0;
  std::string type;
};

Bank ReadBank(const TextInput& gsas, std::string_view line) {
  std::vector<std::string_view> words;
  for (std::string_view rest = line; words.size() < 10;) {
    const std::string_view word = NextWord(rest);
    if (word.empty()) break;
    words.push_back(word);
  }
  if (words.size() < 7 || !StartsIgnoringCase(words[4], "cons"))
    gsas.Fail("data of constant wavelength (CONST)", words.size() > 4 ? Quote(words[4]) : "a shorter line");
  const auto number = [&](std::size_t i, const char* what) { return RequireLeadingNumber(gsas, words[i], what); };
  return {.point_count = number(2, "a number of points"),
          .first = number(5, "a start angle") / kHundredths,
          .step = number(6, "a step") / kHundredths,
          .type = words.size() > 9 ? ToLower(words[9]) : "std"};
}

/// Number of BANK lines from here to the end.
std::size_t CountBanks(TextInput& gsas) {
  std::size_t count = 0;
  for (std::string_view line; gsas.ReadLine(line);)
    if (IsBankLine(line)) ++count;
  gsas.Rewind();
  return count;
}

void TakeTitle(TextInput& gsas, PatternFile& file, std::string_view line) {
  if (gsas.LineNumber() == 1) file.pattern.title = TrimSpace(line);
  TakeRemarkedWavelength(line, gsas.LineNumber(), file);
}

void ReadColumns(TextInput& gsas, const Bank& bank, bool has_sigma, Pattern& pattern) {
  for (double i = 0.0; i < bank.point_count; ++i) {
    std::string_view line = gsas.RequireLine("point " + NumberText(i + 1.0) + " of " + NumberText(bank.point_count));
    const std::string_view whole = line;
    const auto position = ReadReal<double>(NextWord(line));
    const auto count = ReadReal<double>(NextWord(line));
    const auto sigma = has_sigma ? ReadReal<double>(NextWord(line)) : std::optional(0.0);
    if (!position || !count || !sigma) gsas.Fail("position, counts and deviation", Quote(whole));
    pattern.two_theta.push_back(*position / kHundredths);
    pattern.counts.push_back(*count);
    if (has_sigma) pattern.sigma.push_back(*sigma);
  }
}

/// A field of fixed width as a number; what is blank is 0.
double ReadField(const TextInput& gsas, std::string_view line, std::size_t first, std::size_t width) {
  const std::string_view field = TrimSpace(Columns(line, first, first + width - 1));
  const auto value = field.empty() ? std::optional(0.0) : ReadReal<double>(field);
  if (!value) gsas.Fail("a number from column " + std::to_string(first) + " on", Quote(field));
  return *value;
}

void ReadFields(TextInput& gsas, const Bank& bank, bool has_sigma, Pattern& pattern) {
  const std::size_t columns = has_sigma ? 5 : 10;
  for (double i = 0.0; i < bank.point_count;) {
    const std::string_view line =
        gsas.RequireLine("point " + NumberText(i + 1.0) + " of " + NumberText(bank.point_count));
    for (std::size_t c = 0; c < columns && i < bank.point_count; ++c, ++i) {
      if (TrimSpace(line.substr(std::min(c * kLineLength / columns, line.size()))).empty()) break;
      const std::size_t first = c * kLineLength / columns + 1;
      pattern.counts.push_back(ReadField(gsas, line, has_sigma ? first : first + 2, has_sigma ? 8 : 6));
      if (has_sigma) pattern.sigma.push_back(ReadField(gsas, line, first + 8, 8));
    }
    if (TrimSpace(line).empty()) gsas.Fail("counts", "a blank line");
  }
  SetEvenAngles(gsas.Name(), bank.first, bank.step, pattern);
}

}  // namespace

bool LooksLikeGsas(std::string_view text) {
  const std::vector<std::string_view> lines = FirstLines(text, kHeadLines);
  return std::ranges::any_of(lines, IsBankLine);
}

PatternFile ReadGsas(TextInput& gsas, const PatternReadOptions& options) {
  PatternFile file;
  file.format = "GSAS";
  std::size_t wanted = ChooseScan(gsas.Name(), CountBanks(gsas), options, file) + 1;
  std::string_view line;
  while (wanted > 0) {
    line = gsas.RequireLine("a BANK line");
    if (IsBankLine(line)) {
      --wanted;
    } else {
      TakeTitle(gsas, file, line);
    }
  }
  const Bank bank = ReadBank(gsas, line);
  ReservePoints(gsas.Content().size() / 2, file.pattern);
  if (bank.type == "fxye" || bank.type == "fxy") {
    ReadColumns(gsas, bank, bank.type == "fxye", file.pattern);
  } else if (bank.type == "std" || bank.type == "esd") {
    ReadFields(gsas, bank, bank.type == "esd", file.pattern);
  } else {
    gsas.Fail("a bank of type FXYE, FXY, STD or ESD", Quote(bank.type));
  }
  file.format = "GSAS " + std::string(bank.type == "fxye" ? "FXYE" : bank.type == "fxy" ? "FXY" : "raw data");
  FinishPattern(gsas.Name(), file);
  return file;
}

void WriteFxye(const Pattern& pattern, const std::string& title, TextOutput& output) {
  const auto write = [&](std::string line) {
    line.resize(kLineLength, ' ');
    output.WriteLine(line);
  };
  const std::string count = std::to_string(pattern.PointCount());
  const std::vector<double>& angle = pattern.two_theta;
  const double step = pattern.step.value_or((angle.back() - angle.front()) / static_cast<double>(angle.size() - 1));
  write(title);
  write("BANK 1 " + count + ' ' + count + " CONST " + AngleText(angle.front() * kHundredths) + ' ' +
        AngleText(step * kHundredths) + " 0 0 FXYE");
  for (std::size_t i = 0; i < pattern.PointCount(); ++i)
    write(AngleText(angle[i] * kHundredths) + ' ' + NumberText(pattern.counts[i]) + ' ' + NumberText(pattern.sigma[i]));
}

}  // namespace talven
