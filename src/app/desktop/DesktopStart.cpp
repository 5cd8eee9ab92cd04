#include "app/desktop/DesktopStart.h"

#include <filesystem>
#include <stdexcept>
#include <system_error>

#include "textio/FileNames.h"

namespace talven {

DesktopStart TakeOpenedFile(std::vector<std::string> arguments) {
  if (arguments.size() < 2 || arguments[1] != "--open") return {std::move(arguments), {}};
  // A menu entry that is started without a file leaves its place empty.
  if (arguments.size() == 2) return {{arguments[0]}, {}};
  if (arguments.size() != 3) throw std::invalid_argument("--open takes one file, and no other argument");
  std::error_code error;
  const std::filesystem::path path = std::filesystem::absolute(ToPath(arguments[2]), error);
  if (!std::filesystem::exists(path, error)) throw std::invalid_argument("no such file: " + arguments[2]);
  return {{arguments[0]}, FromPath(path)};
}

}  // namespace talven
