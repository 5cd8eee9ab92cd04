// TXT files of X and Y, and what becomes of the ING made of them.
#include "support/FuzzedSession.h"

namespace talven::fuzz {

void RunInput(std::string_view input) {
  static const std::vector<Way> kWays = {Options({"9"}), Options({"9", "4\nok", "3"}), Options({"9", "8", "9"})};
  const Way& way = TakeWay(input, kWays);
  RunSession({{"ABC.TXT", input}}, way);
}

}  // namespace talven::fuzz
