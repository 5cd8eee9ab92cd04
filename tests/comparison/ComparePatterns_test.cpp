// Whole comparisons on the terminal.
#include <gtest/gtest.h>

#include <sstream>

#include "support/Session.h"
#include "support/TestFiles.h"

namespace talven::test {
namespace {

constexpr const char* kLog = "Talven_corvane.log";
const std::string kCompare = "1015=on\nok\n";

SessionResult Compare(const std::string& answers) { return RunSession({"abc", "C:"}, answers); }

void WritePeaks(const std::string& name, const std::string& rows, const std::string& wavelength = "1.54056") {
  WriteFile(name, "   Radiation Wavelength   " + wavelength + "\n   Marked peaks\n" + rows);
}

TEST(ComparePatterns, RefillsTheFormWithWhatItsFieldsAccept) {
  TestDirectory directory;
  WritePeaks("R.LST", "1.000 1\n");
  std::string rows;
  for (int i = 0; i < 150; ++i) rows += std::to_string(10 + i) + " 500\n";
  WritePeaks("FAR.LST", rows);
  WriteFile("NONE.LST", "");
  const std::string forms =
      Compare(kCompare + "1013=0.01\n1014=0.99\n1020=500\n1034=2.5\n1018=on\nok\nR.LST\nFAR.LST\nno\nyes\n" +
              "1014=0.3\nok\nR.LST\nNONE.LST\nno\nyes\nok\ncancel\nexit\n")
          .messages;
  // The 32-bit 0.01 lies below its field's range, 0.99 above; the first sample has 100 peaks of 150 rows, none with a
  // partner; the second has none, and the first one's 100 does not outlive it.
  for (const auto& [field, count] : {std::pair{"Error (Deg.): 0.30 ", 3},
                                     {"SAF: 0.25 ", 2},
                                     {"SAF: 0.30 ", 1},
                                     {"Btrs: 10000 ", 2},
                                     {"Btrs: 100 ", 1},
                                     {"Berr: 2.50 ", 2},
                                     {"Verbose: off", 3}}) {
    int found = 0;
    for (std::size_t at = forms.find(field); at != std::string::npos; at = forms.find(field, at + 1)) ++found;
    EXPECT_EQ(found, count) << field;
  }
}

TEST(ComparePatterns, EndsWhereAFileIsOfNoUse) {
  TestDirectory directory;
  WritePeaks("ONE.LST", "10 1000\n20.50\n");
  WritePeaks("WAVE.LST", "10 1000\n", "copper");
  WritePeaks("ABCDEFGHIJKLMNOPQRSTU.LST", "10 1000\n");
  std::filesystem::create_directory("v1.0");
  const std::string not_there = "LST: cannot be opened: expected an existing file, found none";
  for (const auto& [file, error] :
       {std::pair{"NONE.LST", "NONE." + not_there},
        {"ABCDEFGHIJKLMNOPQRSTU.LST", "." + not_there},
        {"WAVE.LST", "WAVE.LST, line 1: expected 1 number after Radiation Wavelength, found \"copper\""},
        {"v1.0/name", "." + not_there},
        {"ONE.LST", "ONE.LST, line 4: expected 2 numbers in a peak row, found 1"}}) {
    const SessionResult result = Compare(kCompare + "ok\n" + file + "\n");
    EXPECT_EQ(result.exit_code, 1) << file;
    EXPECT_TRUE(result.messages.ends_with("fatal I/O error: " + error + "\n")) << result.messages;
  }
  EXPECT_EQ(CountLines(ReadFile(kLog)), 3) << "title, separator and reference, whole after an error";
  WriteFile("EMPTY.LST", "");
  EXPECT_EQ(Compare(kCompare + "ok\nEMPTY.LST\nexit\n").Boxes(), "No Peaks in Ref.LST\n");
}

}  // namespace
}  // namespace talven::test
