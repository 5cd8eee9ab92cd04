// HKL files, in cells of four kinds.
#include "support/FuzzedSession.h"

namespace talven::fuzz {

void RunInput(std::string_view input) {
  static const std::vector<Way> kWays = {
      Options({"1\nok"}),
      Options({"1\n1014=5\n1030=10\n1018=off\n1024=off\nok"}),
      Options({"1\n1006=2\n1012=off\n1015=on\n1016=25\n1017=10\nok"}),
      Options({"1\n1006=3\n1013=0.1\n1014=0.5\n1030=0.5\n1015=on\n1016=360\nok", "1\nok"}),
      Options({"1\n1014=0.001\n1030=0.5\nok\n1014=1\nok"}),
  };
  constexpr std::string_view kCells[] = {"CELL 0.7 4 4 4 90 90 90\n", "CELL 1.54 8.2 6 8.6 90 122.9 90\n",
                                         "CELL 1.54 30 31 32 80 95 100\n", "CELL 0.7 3 3 4 90 90 120\n"};
  const Way& way = TakeWay(input, kWays);
  RunSession({{"ABC.INS", kCells[input.size() % std::size(kCells)]}, {"ABC.HKL", input}}, way);
}

}  // namespace talven::fuzz
