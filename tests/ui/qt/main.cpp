#include "support/qt/UserScript.h"

int main(int argc, char** argv) {
  return talven::test::RunDesktopTests(argc, argv);
}
