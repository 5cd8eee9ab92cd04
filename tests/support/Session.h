// Whole sessions of the terminal program, in memory or as a process of their own.
#pragma once

#include <string>
#include <vector>

namespace talven::test {

struct SessionResult {
  int exit_code = -1;
  /// Pane lines after the banner of six lines.
  std::string pane;
  /// Everything on standard output, and on standard error.
  std::string output;
  std::string messages;

  /// The texts of the message boxes, one to a line.
  std::string Boxes() const;
};

/// Runs `talven-console ARGUMENTS` in this process on the given answers. Arguments come without the program's path.
SessionResult RunSession(const std::vector<std::string>& arguments, const std::string& answers);

/// Path of the terminal program, and one that it could have, where none of our other programs is.
extern const std::string kTalvenConsole, kOwnPath;

/// Runs a shell's command line and gives its exit code.
int RunCommand(const std::string& command);

/// Runs the real program; `redirection` is put after its command line in a shell.
SessionResult RunProcess(const std::string& arguments, const std::string& answers, const std::string& redirection = "");

}  // namespace talven::test
