// talven: the program in a window.

#include <iostream>

#include "app/CommandLine.h"
#include "app/desktop/DesktopProgram.h"
#include "ui/Process.h"
#include "ui/qt/DesktopSession.h"

int main(int argc, char** argv) {
  talven::EnsureStandardStreams();
  const std::vector<std::string> arguments = talven::CommandArguments(argc, argv);
  if (const auto exit_code = talven::AnswerCommandLine("talven", arguments, std::cout, std::cerr)) return *exit_code;
  const talven::DesktopSession session(argv);
  return talven::RunDesktop(arguments);
}
