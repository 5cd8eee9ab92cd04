// CIF files, and what becomes of the ING made of them.
#include "support/FuzzedSession.h"

namespace talven::fuzz {

void RunInput(std::string_view input) {
  static const std::vector<Way> kWays = {Options({"2"}), Options({"2", "2", "8"}), Options({"2", "4\nok", "3"})};
  const Way& way = TakeWay(input, kWays);
  RunSession({{"ABC.CIF", input}}, way);
}

}  // namespace talven::fuzz
