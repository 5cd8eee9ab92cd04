// What the command line of the program in a window says beyond that of the terminal program.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace talven {

struct DesktopStart {
  /// Those of a start as the terminal program knows it, the program's own full path first.
  std::vector<std::string> arguments;
  /// Full path of the file of `--open FILE`, which gives job and folder of a start by hand; else empty.
  std::string opened_file;
};

/// Takes `--open FILE` off the arguments. Throws std::invalid_argument, with what to tell the user, where FILE is
/// missing or there are other arguments.
DesktopStart TakeOpenedFile(std::vector<std::string> arguments);

}  // namespace talven
