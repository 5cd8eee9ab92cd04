// talven-run: the work without questions.

#include <iostream>
#include <string>
#include <vector>

#include "app/CommandLine.h"
#include "app/run/AllCommands.h"
#include "app/run/RunProgram.h"
#include "app/run/StopSignal.h"
#include "ui/Process.h"
#include "ui/console/Terminal.h"

int main(int argc, char** argv) {
  talven::EnsureStandardStreams();
  talven::PrepareTerminal();
  talven::WatchStopSignals();
  return talven::RunTalvenRun(talven::ProcessArguments(argc, argv),
                              {std::cin, std::cout, std::cerr, talven::IsTerminalMessages()}, talven::AllCommands());
}
