// INS files: the simulator's cell line, the dummy list, and the automatic run with its normalising and rewriting.
#include "support/FuzzedSession.h"

namespace talven::fuzz {

void RunInput(std::string_view input) {
  static const std::vector<Way> kWays = {
      Options({"1\nok"}),
      Options({"5\n1019=2\n1020=1\n1021=1\nok"}),
      Options({"5\n1015=on\n1019=1\n1020=2\n1021=1\nok\n1006=4\nok"}),
      Options({"5\n1019=1\n1020=1\n1021=2\nok"}, "VRAIL"),
      Options({"5\nok", "1\nok"}),
      Unattended("ABC"),
      Unattended("vrail"),
  };
  constexpr std::string_view kFcf = "   1   0   0      100.00      100.00      1.00 o\n";
  const Way& way = TakeWay(input, kWays);
  const std::string& job = way.arguments.front();
  RunSession({{job + ".INS", input}, {job + ".HKL", "   1   0   0  100.00    1.00\n   1   1  -1   50.00    1.00\n"}},
             way, {{"VRAIL.fcf", kFcf}, {"ABC.FCF", kFcf}});
}

}  // namespace talven::fuzz
