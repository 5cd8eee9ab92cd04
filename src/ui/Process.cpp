#include "ui/Process.h"

#include <system_error>

#include "textio/FileNames.h"

namespace talven {
namespace {

std::vector<std::string> SplitAtBlanks(std::string_view text) {
  std::vector<std::string> words;
  while (true) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return words;
    text.remove_prefix(first);
    const std::string_view word = text.substr(0, text.find(' '));
    words.emplace_back(word);
    text.remove_prefix(word.size());
  }
}

std::optional<std::string> FindProgram(std::string_view name) {
  constexpr std::string_view kSuffix = ".exe";
  auto path = FindExisting(name);
  if (!path && name.ends_with(kSuffix)) path = FindExisting(name.substr(0, name.size() - kSuffix.size()));
  std::error_code error;
  if (!path || std::filesystem::is_directory(*path, error)) return std::nullopt;
  return FromPath(*path);
}

}  // namespace

std::optional<Command> FindCommand(std::string_view command) {
  std::vector<std::string> words = SplitAtBlanks(command);
  if (words.empty()) return std::nullopt;
  auto program = FindProgram(words.front());
  if (!program) return std::nullopt;
  words.erase(words.begin());
  return Command{*std::move(program), std::move(words)};
}

}  // namespace talven
