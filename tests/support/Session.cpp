#include "support/Session.h"

#include <algorithm>
#include <iterator>
#include <sstream>

#include "app/console/ConsoleProgram.h"
#include "support/TestFiles.h"

namespace talven::test {
namespace {

/// What comes after the six lines of the banner.
std::string BehindBanner(const std::string& output) {
  std::size_t begin = 0;
  for (int line = 0; line < 6 && begin < output.size(); ++line) begin = output.find('\n', begin) + 1;
  return output.substr(begin);
}

}  // namespace

std::string SessionResult::Boxes() const {
  std::istringstream stream(messages);
  std::string boxes;
  for (std::string line; std::getline(stream, line);)
    if (line.starts_with("[message] ")) boxes += line.substr(10) + "\n";
  return boxes;
}

SessionResult RunSession(const std::vector<std::string>& arguments, const std::string& answers) {
  std::vector<std::string> argv = {kOwnPath};
  std::ranges::remove_copy(arguments, std::back_inserter(argv), "");
  std::istringstream input(answers);
  std::ostringstream output;
  std::ostringstream messages;
  const int exit_code = RunConsole(argv, {input, output, messages, false});
  return {exit_code, BehindBanner(output.str()), output.str(), messages.str()};
}

const std::string kTalvenConsole = TALVEN_CONSOLE;

SessionResult RunProcess(const std::string& arguments, const std::string& answers, const std::string& redirection) {
  WriteFile("../answers", answers);
  const int exit_code =
      RunCommand("\"" + kTalvenConsole + "\" " + arguments + " <../answers >../output 2>../messages " + redirection);
  const std::string output = ReadFile("../output");
  return {exit_code, BehindBanner(output), output, ReadFile("../messages")};
}

}  // namespace talven::test
