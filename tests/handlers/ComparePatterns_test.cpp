#include <gtest/gtest.h>

#include "support/Session.h"
#include "support/TestFiles.h"

namespace talven::test {
namespace {

TEST(ComparePatterns, RefillsTheFormWithWhatItsFieldsAccept) {
  const TestDirectory directory;
  const std::string head = "   Radiation Wavelength   1.54056\n   Marked peaks\n";
  std::string rows;
  for (int i = 0; i < 150; ++i) rows += std::to_string(10 + i) + " 500\n";
  WriteFile("R.LST", head + "1.000 1\n");
  WriteFile("FAR.LST", head + rows);
  WriteFile("NONE.LST", "");
  const std::string answers =
      "1015=on\nok\n1013=0.01\n1014=0.99\n1020=500\n1034=2.5\n1018=on\nok\nR.LST\nFAR.LST\nno\nyes\n"
      "1014=0.3\nok\nR.LST\nNONE.LST\nno\nyes\nok\ncancel\nexit\n";
  const std::string forms = RunSession({"abc", "C:"}, answers).messages;
  // The 32-bit 0.01 lies below its field's range, 0.99 above; the first sample has 100 peaks of 150 rows, none with a
  // partner; the second has none, and the first one's 100 does not outlive it.
  using Row = std::pair<const char*, int>;
  for (const auto& [field, count] :
       {Row{"Error (Deg.): 0.30 ", 3}, Row{"SAF: 0.25 ", 2}, Row{"SAF: 0.30 ", 1}, Row{"Btrs: 10000 ", 2},
        Row{"Btrs: 100 ", 1}, Row{"Berr: 2.50 ", 2}, Row{"Verbose: off", 3}})
    EXPECT_EQ(Count(forms, field), count) << field;
}

}  // namespace
}  // namespace talven::test
