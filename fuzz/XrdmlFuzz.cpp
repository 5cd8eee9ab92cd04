// XRDML files.
#include "support/FuzzedPattern.h"
#include "support/FuzzedSession.h"

namespace talven::fuzz {

void RunInput(std::string_view input) {
  if (input.starts_with('<')) ReadAnyPattern("ABC.xrdml", input);
}

}  // namespace talven::fuzz
