#include <filesystem>
#include <system_error>

#include "app/CommandLine.h"
#include "textio/FileNames.h"

namespace talven {

std::vector<std::string> ProcessArguments(int argc, const char* const* argv) {
  std::error_code error;
  std::vector<std::string> arguments(argv, argv + argc);
  // A program that was found on the path was called by its name alone, without a folder.
  const auto itself = std::filesystem::read_symlink("/proc/self/exe", error);
  if (!error && !itself.empty()) {
    arguments.front() = FromPath(itself);
    return arguments;
  }
  arguments.front() = FromPath(std::filesystem::absolute(ToPath(arguments.front()), error));
  return arguments;
}

}  // namespace talven
