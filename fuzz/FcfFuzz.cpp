// FCF files: the simulator on them, the list made of them, and the automatic run with one as its refinement's result.
#include "support/FuzzedSession.h"

namespace talven::fuzz {

void RunInput(std::string_view input) {
  static const std::vector<Way> kWays = {
      Options({"6"}),
      Options({"7\n1014=0.5\nok"}),
      Options({"7\n1006=2\n1012=off\n1014=1\nok", "6", "6"}),
      Unattended("ABC"),
  };
  const Way& way = TakeWay(input, kWays);
  RunSession({{"ABC.INS", "REM XWMIN\nCELL 1.54 8.2 6 8.6 90 122.9 90\n"}, {"ABC.FCF", input}}, way,
             {{"ABC.fcf", input}});
}

}  // namespace talven::fuzz
