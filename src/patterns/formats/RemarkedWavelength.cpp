#include "patterns/formats/RemarkedWavelength.h"

#include <string>

#include "patterns/formats/FormatText.h"

namespace talven {

bool IsWavelength(double value) {
  return value >= 0.01 && value <= 10.0;
}

namespace {

/// The first number that stands after an equals sign, a colon or a comma and can be a wavelength.
std::optional<double> NumberAfterSign(std::string_view text) {
  for (std::size_t sign = text.find_first_of("=:,"); sign != std::string_view::npos;
       sign = text.find_first_of("=:,", sign + 1)) {
    const auto number = LeadingNumber(text.substr(sign + 1));
    if (number && IsWavelength(*number)) return number;
  }
  return std::nullopt;
}

}  // namespace

void TakeRemarkedWavelength(std::string_view text, std::size_t line, PatternFile& file) {
  if (file.pattern.wavelength) return;
  for (const std::string_view word : {"wavelength", "lambda"}) {
    const std::size_t begin = FindNoCase(text, word);
    if (begin == std::string_view::npos) continue;
    const auto number = NumberAfterSign(text.substr(begin + word.size()));
    if (!number) continue;
    file.pattern.wavelength = *number;
    file.notices.push_back("The wavelength " + NumberText(*number) + " comes from the text of line " +
                           std::to_string(line) + ".");
    return;
  }
}

}  // namespace talven
