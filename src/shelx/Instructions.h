// The instructions of a SHELX file, one by one: continued lines put together, comments taken off.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "textio/TextInput.h"

namespace talven {

struct Instruction {
  Instruction() = default;
  // A copy's words would be views of the original.
  Instruction(const Instruction&) = delete;
  Instruction& operator=(const Instruction&) = delete;

  /// Number of its first line, from 1.
  std::size_t line = 0;
  /// First word in upper case, without a `_suffix`; of a line that names another file just its `+`.
  std::string keyword;
  /// What stands after the first word.
  std::string text;
  /// That text taken apart at blanks, tabs and commas.
  std::vector<std::string_view> words;
};

/// Reads the instructions up to HKLF, END or the end of the file. Lines that begin with a blank are comments, those
/// between FRAG and FEND belong to no structure; both are passed over, and so are REM and blank lines.
class InstructionReader {
 public:
  explicit InstructionReader(TextInput& file) : file_(file) {}

  /// The next instruction, valid until the next call; nothing after the last. Throws FatalIoError for a character
  /// that no text has, and for a file that ends where a line should go on.
  const Instruction* Next();

  /// The number of a line that should go on and does not, each once.
  const std::vector<std::size_t>& UnfinishedLines() const { return unfinished_lines_; }

 private:
  std::optional<std::string_view> NextLine();
  bool Begin(std::string_view line);
  void AppendContinuations(std::string_view& line);

  TextInput& file_;
  Instruction instruction_;
  std::optional<std::string_view> pending_;
  std::vector<std::size_t> unfinished_lines_;
  bool is_over_ = false;
};

/// The words of a text, parted by blanks, tabs and commas.
std::vector<std::string_view> SplitWords(std::string_view text);

}  // namespace talven
