// A command line that can't be carried out.
#pragma once

#include <stdexcept>
#include <string>

namespace talven {

/// Ends the program with exit code 2 before anything is written. The text begins with the option or file in question.
class CommandLineError : public std::runtime_error {
 public:
  explicit CommandLineError(const std::string& text) : std::runtime_error(text) {}
};

}  // namespace talven
