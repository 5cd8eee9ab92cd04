// talven: the program in a window.

#include <iostream>
#include <stdexcept>

#include "app/CommandLine.h"
#include "app/desktop/DesktopProgram.h"
#include "ui/Process.h"
#include "ui/Toolkit.h"
#include "ui/qt/DesktopSession.h"

int main(int argc, char** argv) {
  talven::EnsureStandardStreams();
  try {
    const talven::DesktopStart start = talven::TakeOpenedFile(talven::CommandArguments(argc, argv));
    if (const auto code = talven::AnswerCommandLine("talven", start.arguments, std::cout, std::cerr)) return *code;
    const talven::DesktopSession session(argv);
    return talven::RunDesktop(start);
  } catch (const std::invalid_argument& error) {
    std::cerr << "talven: " << error.what() << '\n';
    return talven::kExitRefused;
  }
}
