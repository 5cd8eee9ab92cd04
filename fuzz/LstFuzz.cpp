// LST files: a reference and a sample, parted by the first '|', or one that is both.
#include "support/FuzzedSession.h"

namespace talven::fuzz {
namespace {

/// Comparisons of a reference and a sample, then the other way round, with other settings.
Way Compare(const std::string& settings) {
  const std::string call = "1015=on\nok\n" + settings + "ok\n";
  return {{"ABC", "C:"}, call + "R.LST\nS.LST\nyes\nR.LST\nyes\nok\nS.LST\nR.LST\nno\nno\nexit\n"};
}

}  // namespace

void RunInput(std::string_view input) {
  static const std::vector<Way> kWays = {
      Compare(""),
      Compare("1018=on\n1015=on\n"),
      Compare("1018=on\n1015=on\n1012=on\n1013=1.5\n1030=-5\n1020=100\n1034=10\n1017=1\n"),
      Compare("1018=on\n1013=0.01\n1016=0.9\n1014=0.02\n1019=5\n1030=1E9\n1020=90000\n1034=0.1\n1017=99\n"),
  };
  const Way& way = TakeWay(input, kWays);
  const std::size_t mark = input.find('|');
  const std::string_view reference = input.substr(0, mark);
  RunSession({{"R.LST", reference}, {"S.LST", mark == input.npos ? reference : input.substr(mark + 1)}}, way);
}

}  // namespace talven::fuzz
