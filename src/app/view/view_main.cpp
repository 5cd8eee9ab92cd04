// talven-view: powder patterns in a window of their own.

#include <iostream>

#include "app/CommandLine.h"
#include "app/view/ViewProgram.h"
#include "ui/Process.h"

int main(int argc, char** argv) {
  talven::EnsureStandardStreams();
  return talven::RunView(talven::CommandArguments(argc, argv), argv, std::cout, std::cerr);
}
