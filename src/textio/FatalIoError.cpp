#include "textio/FatalIoError.h"

namespace talven {

void FailAtLine(std::string_view file, std::size_t line, std::string_view expected, std::string_view found) {
  throw FatalIoError(std::string(file) + ", line " + std::to_string(line) + ": expected " + std::string(expected) +
                     ", found " + std::string(found));
}

}  // namespace talven
