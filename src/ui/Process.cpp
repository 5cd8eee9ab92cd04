#include "ui/Process.h"

#include <system_error>

#include "textio/Folder.h"

namespace talven {
namespace {

std::optional<std::string> FindProgram(std::string_view name) {
  constexpr std::string_view kSuffix = ".exe";
  auto path = Folder().Find(name);
  if (!path && name.ends_with(kSuffix)) path = Folder().Find(name.substr(0, name.size() - kSuffix.size()));
  std::error_code error;
  if (!path || std::filesystem::is_directory(*path, error)) return std::nullopt;
  return FromPath(*path);
}

}  // namespace

std::optional<Command> FindCommand(std::string_view command) {
  const std::string_view name = command.substr(0, command.find(' '));
  auto program = FindProgram(name);
  if (!program) return std::nullopt;
  return Command{*std::move(program), std::string(command.substr(name.size()))};
}

}  // namespace talven
