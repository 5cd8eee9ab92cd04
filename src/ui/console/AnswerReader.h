// The answers that a terminal session is given: one to a line, from a person or from a file.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace talven {

/// An answer that can't be taken, where nobody is there to give another. The text names the line of the input.
class RefusedAnswer : public std::runtime_error {
 public:
  explicit RefusedAnswer(const std::string& text) : std::runtime_error(text) {}
};

class AnswerReader {
 public:
  AnswerReader(std::istream& input, std::ostream& messages, bool is_interactive)
      : input_(input), messages_(messages), is_interactive_(is_interactive) {}

  enum class BlankLines { kSkip, kKeep };
  /// The next answer without its end and trailing blanks; lines that begin with # are passed over. Nothing at the end
  /// of the input.
  std::optional<std::string> Next(BlankLines blank_lines);

  /// A person gives the answers, and can give another one.
  bool IsInteractive() const { return is_interactive_; }
  /// True for a person's `help` or `?`.
  bool IsCallForHelp(std::string_view answer) const;

  /// Says why the last answer can't be taken and what would be. Throws RefusedAnswer unless a person can answer again.
  void Refuse(std::string_view answer, std::string_view reason);

 private:
  std::istream& input_;
  std::ostream& messages_;
  bool is_interactive_;
  std::size_t line_number_ = 0;
};

}  // namespace talven
