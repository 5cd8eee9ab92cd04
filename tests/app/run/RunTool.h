// talven-run in memory, on a line of arguments.
#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "app/run/AllCommands.h"

namespace talven::test {

struct Outcome {
  int exit_code = -1;
  std::string output, messages;
};

/// Words are parted by blanks.
inline Outcome RunTool(const std::string& arguments) {
  std::vector<std::string> words = {"talven-run"};
  std::istringstream list(arguments);
  for (std::string word; list >> word;) words.push_back(word);
  std::istringstream input;
  std::ostringstream output, messages;
  const int exit_code = RunTalvenRun(words, {input, output, messages, false}, AllCommands());
  return {exit_code, output.str(), messages.str()};
}

}  // namespace talven::test
