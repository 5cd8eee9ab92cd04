// talven-console: the program on a terminal.

#include <iostream>

#include "app/CommandLine.h"
#include "app/console/ConsoleProgram.h"
#include "ui/Process.h"
#include "ui/console/Terminal.h"

int main(int argc, char** argv) {
  talven::EnsureStandardStreams();
  talven::PrepareTerminal();
  return talven::RunConsole(talven::CommandArguments(argc, argv),
                            {std::cin, std::cout, std::cerr, talven::IsTerminalInput()});
}
