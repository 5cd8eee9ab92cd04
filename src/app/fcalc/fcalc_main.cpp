#include <iostream>

#include "app/fcalc/FcalcProgram.h"
#include "ui/Process.h"

int main(int argc, char** argv) {
  talven::EnsureStandardStreams();
  return talven::RunFcalc({argv, argv + argc}, std::cout, std::cerr);
}
