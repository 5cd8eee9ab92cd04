// Files of any kind for the registry of pattern formats.
#include "support/FuzzedPattern.h"
#include "support/FuzzedSession.h"

namespace talven::fuzz {

void RunInput(std::string_view input) {
  static const std::vector<Way> kNames = {{{"ABC.xy"}, ""}, {{"ABC.dat"}, ""}, {{"ABC.raw"}, ""}, {{"ABC.udf"}, ""}};
  ReadAnyPattern(TakeWay(input, kNames).arguments.front(), input);
}

}  // namespace talven::fuzz
