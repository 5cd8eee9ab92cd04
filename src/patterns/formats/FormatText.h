// Words and numbers of text formats, in and out.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "textio/LetterCase.h"
#include "textio/TextInput.h"

namespace talven {

/// Throws FatalIoError for a file as a whole: `ABC.CPI: expected ..., found ...`.
[[noreturn]] void FailInFile(std::string_view file, std::string_view expected, std::string_view found);

/// The next word between blanks, tabs and line ends, taken off the front of `rest`; empty at its end.
std::string_view NextWord(std::string_view& rest);
std::size_t CountWords(std::string_view text);

/// The text without blanks, tabs and line ends before and after it.
std::string_view TrimSpace(std::string_view text);
/// Where a word of lower case stands in a text of any; npos if nowhere.
std::size_t FindNoCase(std::string_view text, std::string_view lower_case);

/// The number that a line begins with, blanks, commas or semicolons after it; nothing if it begins with none.
std::optional<double> LeadingNumber(std::string_view line);
/// The same for a line that has to begin with one. Throws FatalIoError; `expected` names it ("a step in degrees").
double RequireLeadingNumber(const TextInput& input, std::string_view line, std::string_view expected);

/// The first lines of a text without their ends.
std::vector<std::string_view> FirstLines(std::string_view text, std::size_t count);

/// The shortest text that gives the very value when read, with no exponent below 10^15.
std::string NumberText(double value);
/// An angle in degrees to ten decimals, trailing zeros left out.
std::string AngleText(double degrees);
/// The text with blanks ahead of it up to a width.
std::string AlignRight(std::string_view text, std::size_t width);

}  // namespace talven
