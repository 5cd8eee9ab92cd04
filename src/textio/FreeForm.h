// Free-form text: numbers in with no layout, items out with the layout of their type.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "textio/Record.h"
#include "textio/TextInput.h"
#include "textio/TextOutput.h"

namespace talven {

// Numbers stand apart by blanks, commas, tabs, carriage returns or slashes; what follows the last one wanted is
// not looked at. Reading from a file begins on a fresh line and goes on over further lines, blank ones too, until all
// values are there. Reading from text in memory ends with that text.

enum class ReadStatus { kOk, kEndOfFile, kMalformed };

/// Reads reals from the next lines of a file. Values before a failing one are stored; `bad` takes the text that is
/// no number.
ReadStatus ReadReals(TextInput& file, std::span<float> values, std::string_view* bad = nullptr);

/// The same where nothing but the numbers will do: throws FatalIoError; `what` names them ("a wavelength").
void RequireReals(TextInput& file, std::span<float> values, std::string_view what);
std::int32_t RequireWholeNumber(TextInput& file, std::string_view what);

/// Reads numbers from text in memory, which came from the current line of the file. Throws FatalIoError if a number is
/// missing or is none; `what` ends the message's "expected 7 numbers ...".
void ParseReals(const TextInput& file, std::string_view text, std::span<float> values, std::string_view what);
void ParseWholeNumbers(const TextInput& file, std::string_view text, std::span<std::int32_t> values,
                       std::string_view what);

/// A free-form line of a file: one blank, then the items. An item that would pass column 81 begins a new line, which
/// begins with one blank too; the first item of a line is never moved. (In a line built in memory a whole number is
/// `I12` and a real `G15.6` of Record, with no blank ahead and no limit.)
class FreeFormLine {
 public:
  explicit FreeFormLine(TextOutput& file) : file_(file) { record_.X(1); }
  FreeFormLine& Text(std::string_view text);
  FreeFormLine& Integer(std::int64_t value);
  FreeFormLine& Real(double value);
  /// Writes the line out.
  void End();

 private:
  void MakeRoom(std::size_t width);
  TextOutput& file_;
  Record record_;
};

}  // namespace talven
