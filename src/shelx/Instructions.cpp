#include "shelx/Instructions.h"

#include <algorithm>
#include <cctype>

#include "textio/FatalIoError.h"
#include "textio/FieldInput.h"
#include "textio/LetterCase.h"

namespace talven {
namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kSeparators = " \t,";

bool BeginsWithBlank(std::string_view line) {
  return line.empty() || kBlanks.find(line.front()) != std::string_view::npos;
}

/// REM also where no blank follows, as in a row of crosses.
bool IsRemark(std::string_view line) {
  if (!StartsIgnoringCase(line, "REM")) return false;
  return line.size() == 3 || std::isalnum(static_cast<unsigned char>(line[3])) == 0;
}

bool IsTitle(std::string_view line) {
  return StartsIgnoringCase(line, "TITL");
}

/// A line goes on with one that begins with a blank, or, where another program took that off, with numbers.
bool IsContinuation(std::string_view line) {
  if (BeginsWithBlank(line)) return true;
  return ReadReal<double>(line.substr(0, line.find_first_of(kSeparators))).has_value();
}

}  // namespace

std::vector<std::string_view> SplitWords(std::string_view text) {
  std::vector<std::string_view> words;
  while (true) {
    const std::size_t first = text.find_first_not_of(kSeparators);
    if (first == std::string_view::npos) return words;
    text.remove_prefix(first);
    words.push_back(text.substr(0, text.find_first_of(kSeparators)));
    text.remove_prefix(words.back().size());
  }
}

std::optional<std::string_view> InstructionReader::NextLine() {
  std::string_view line;
  if (pending_) {
    line = *pending_;
    pending_.reset();
    return line;
  }
  if (!file_.ReadLine(line)) return std::nullopt;
  if (line.find('\0') != std::string_view::npos) file_.Fail("text", "a character of value 0");
  return line;
}

void InstructionReader::AppendContinuations(std::string_view& line) {
  while (true) {
    line = line.substr(0, line.find('!'));
    const std::size_t sign = line.find('=');
    instruction_.text.append(line.substr(0, sign));
    if (sign == std::string_view::npos) return;
    instruction_.text += ' ';
    const auto next = NextLine();
    if (!next) FailAtLine(file_.Name(), instruction_.line, "a line that goes on with this one", "end of file");
    if (!IsContinuation(*next)) {
      pending_ = next;
      unfinished_lines_.push_back(instruction_.line);
      return;
    }
    line = *next;
  }
}

/// False for a line that is no instruction.
bool InstructionReader::Begin(std::string_view line) {
  if (BeginsWithBlank(line) || line.front() == '!' || IsRemark(line)) return false;
  instruction_.line = file_.LineNumber();
  instruction_.text.clear();
  if (IsTitle(line)) {
    instruction_.keyword = "TITL";
    instruction_.text = line.substr(4);
    return true;
  }
  if (line.front() == '+') {
    instruction_.keyword.assign(1, '+');
    instruction_.text = line.substr(1, line.find('!') - 1);
    return true;
  }
  const std::string_view word = line.substr(0, line.find_first_of(" \t,!="));
  instruction_.keyword = ToUpper(word.substr(0, word.find('_')));
  line.remove_prefix(word.size());
  AppendContinuations(line);
  return true;
}

const Instruction* InstructionReader::Next() {
  bool is_fragment = false;
  while (!is_over_) {
    const auto line = NextLine();
    if (!line) break;
    if (!Begin(*line)) continue;
    const std::string& keyword = instruction_.keyword;
    is_over_ = keyword == "HKLF" || keyword == "END";
    if (keyword == "FRAG") is_fragment = true;
    const bool is_passed_over = is_fragment || is_over_;
    if (keyword == "FEND") is_fragment = false;
    if (is_passed_over) continue;
    instruction_.words = SplitWords(instruction_.text);
    return &instruction_;
  }
  is_over_ = true;
  return nullptr;
}

}  // namespace talven
