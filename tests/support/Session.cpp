#include "support/Session.h"

#include <sys/wait.h>

#include <cstdlib>
#include <sstream>

#include "app/CommandLine.h"
#include "app/console/ConsoleProgram.h"
#include "support/TestFiles.h"

namespace talven::test {
namespace {

/// What comes behind the six lines of the banner.
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
  std::vector<const char*> argv = {"/usr/bin/talven-console"};
  for (const std::string& argument : arguments) argv.push_back(argument.c_str());
  std::istringstream input(answers);
  std::ostringstream output;
  std::ostringstream messages;
  const int exit_code =
      RunConsole(CommandArguments(static_cast<int>(argv.size()), argv.data()), {input, output, messages, false});
  return {exit_code, BehindBanner(output.str()), output.str(), messages.str()};
}

const std::string kTalvenConsole = TALVEN_CONSOLE;

SessionResult RunProcess(const std::string& arguments, const std::string& answers, const std::string& redirection) {
  WriteFile("../answers", answers);
  const std::string command =
      "'" + kTalvenConsole + "' " + arguments + " <../answers >../output 2>../messages " + redirection;
  const int status = std::system(command.c_str());
  const int exit_code = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  const std::string output = ReadFile("../output");
  return {exit_code, BehindBanner(output), output, ReadFile("../messages")};
}

}  // namespace talven::test
