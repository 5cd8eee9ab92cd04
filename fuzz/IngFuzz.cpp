// ING files: to CIF, to text, and reformatted for each wavelength.
#include "support/FuzzedSession.h"

namespace talven::fuzz {

void RunInput(std::string_view input) {
  static const std::vector<Way> kWays = {
      Options({"3"}),
      Options({"8", "9"}),
      Options({"4\nok"}),
      Options({"4\n1006=2\n1014=0.001\nok"}),
      Options({"4\n1006=3\n1013=3.5\n1030=0.5\n1014=5\nok"}),
      Options({"4\n1006=3\n1013=0.1\n1015=on\n1016=360\nok", "4\nok", "3", "8"}),
  };
  const Way& way = TakeWay(input, kWays);
  RunSession({{"ABC.ING", input}}, way);
}

}  // namespace talven::fuzz
