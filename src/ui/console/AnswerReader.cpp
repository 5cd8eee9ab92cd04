#include "ui/console/AnswerReader.h"

#include <istream>
#include <ostream>

#include "textio/FixedText.h"

namespace talven {

std::optional<std::string> AnswerReader::Next(BlankLines blank_lines) {
  std::string line;
  while (std::getline(input_, line)) {
    ++line_number_;
    line.resize(line.find_last_not_of(" \t\r") + 1);
    if (line.starts_with('#') || (line.empty() && blank_lines == BlankLines::kSkip)) continue;
    return line;
  }
  return std::nullopt;
}

bool AnswerReader::IsCallForHelp(std::string_view answer) const {
  const std::string_view word = Trim(answer);
  return is_interactive_ && (word == "help" || word == "?");
}

void AnswerReader::Refuse(std::string_view answer, std::string_view reason) {
  std::string text = "answer ";
  if (!is_interactive_) text += "in line " + std::to_string(line_number_) + " of the input ";
  text.append("refused: ").append(answer).append(": ").append(reason);
  if (!is_interactive_) throw RefusedAnswer(text);
  messages_ << text << std::endl;
}

}  // namespace talven
