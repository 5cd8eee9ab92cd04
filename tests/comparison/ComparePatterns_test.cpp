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

/// A log with `@` before the file in the lines of references and samples.
std::string WithFileLines(const std::string& log, const TestDirectory& directory) {
  std::istringstream stream(log);
  std::string text;
  for (std::string line; std::getline(stream, line); text += line + "\n") {
    const std::size_t mark = line.find('@');
    if (mark == std::string::npos) continue;
    line = line.erase(mark, 1) + ".LST " + directory.Path().string();
    line.resize(81, ' ');
  }
  return text;
}

TEST(ComparePatterns, WritesTheLogOfAWholeSession) {
  TestDirectory directory;
  WritePeaks("ref1.lst", "10 1000\n11 500\n20 2000\n21 800\n30 100\n");
  WritePeaks("S2.LST", "10.1 400\n20.1 1600\n40 1200\n");
  WriteFile("S3.LST", "no table of peaks\n");
  WritePeaks("REF2.LST", "5 100\n15 300\n25 200\n", "1.0");
  WritePeaks("S4.LST", "5.1 50\n15.1 150\n25.1 100\n");
  WritePeaks("S5.LST", "5 100\n16 90\n");
  WriteFile(kLog, "an earlier log\n");
  const std::string first_run = "1015=on\nok\nref1.lst\nref1.lst\nyes\nS2.LST\nyes\nS3.LST\nno\nyes\n";
  const std::string second_run = "1015=on\n1018=on\n1019=5\nok\nREF2.LST\nS5.LST\nyes\ncancel\n";
  const std::string second_call = "ok\nREF2.LST\nS4.LST\nno\nno\n";
  const SessionResult result = Compare(kCompare + first_run + second_run + kCompare + second_call + "exit\n");
  EXPECT_EQ(ReadFile(kLog), WithFileLines(R"(  Talven_corvane LOG File
  *****************************************
  Reference @ref1
  2THETA    12.6352    
  AngTol NMF  SAF  T4M  BSep  Btres Berr DSPACE
  0.30  0.33  0.25   2  2.80      3 1.50  7.00
       Bno. Start   End   Max.pk Max.cnt    Tot.cnt  Pk.no.
 Band    1  10.00  11.00  49500.  10.00      74250.   2.
 Band    2  20.00  21.00  99000.  20.00     178200.   3.
  Sample Name @ref1
 Band    1  10.00  11.00  49500.  10.00      74250.   2.
 Band    2  20.00  21.00  99000.  20.00     178200.   3.
     Rno. Sno.  M1    M2    BMATCH T4R+S RNM RNM4 BN
     5    5 1.0000 1.0000  1.000   4.   0.   0.   2
  Sample Name @S2
 Band    1  10.10  10.10  24750.  10.10      24750.   0.
     Rno. Sno.  M1    M2    BMATCH T4R+S RNM RNM4 BN
     5    3 0.0240 0.0240  0.500   2.   3.   2.   1
  Sample Name @S3
  *****************************************
  Reference @REF2
  2THETA    8.19209    
  AngTol NMF  SAF  T4M  BSep  Btres Berr DSPACE
  0.30  0.33  0.25   5  2.80      1 1.50  7.00
       Bno. Start   End   Max.pk Max.cnt    Tot.cnt  Pk.no.
 Band    1   5.00   5.00  33000.   5.00      33000.   0.
  Reference Area     19800.0    
  Sample Name @S5
 Band    1   5.00   5.00  99000.   5.00      99000.   0.
  Reference Peaks            3
  Sample    Peaks            2
  Initial RMATCH    0.
  In T5 of R and S  1.
  In S not in R     2.
  T5 R not matched  2.
 #Less than 5 in R and S
 # S not M >.33 R    0.666667    
  Not Matched R            2 S            1
  Sample Area     18810.0    
  SAREA, Fract. FLimit    18810.0       0.500000E-01   0.250000    
     Rno. Sno.  M1    M2    BMATCH T4R+S RNM RNM4 BN
     3    2 0.0044 0.0044  1.000   1.   2.   2.   1
  Talven_corvane LOG File
  *****************************************
  Reference @REF2
  AngTol NMF  SAF  T4M  BSep  Btres Berr DSPACE
  0.30  0.33  0.25   2  2.80      1 1.50  7.00
       Bno. Start   End   Max.pk Max.cnt    Tot.cnt  Pk.no.
 Band    1   5.00   5.00  33000.   5.00      33000.   0.
  Sample Name @S4
 Band    1   5.10   5.10  33000.   5.10      33000.   0.
     Rno. Sno.  M1    M2    BMATCH T4R+S RNM RNM4 BN
     3    3 1.0000 1.0000  1.000   3.   0.   0.   1
)",
                                          directory));
  EXPECT_EQ(LineOf(result.Boxes(), 3), "No Peaks in Sample.LST");
  EXPECT_NE(result.pane.find("\nReference Area     19800.0\n Sample Name S5.LST"), std::string::npos);
  EXPECT_NE(result.pane.find("SAREA, Fract. FLimit     18810.0       0.500000E-01   0.250000\n"), std::string::npos);

  Compare(kCompare + "ok\ncancel\nexit\n");
  EXPECT_EQ(ReadFile(kLog), "  Talven_corvane LOG File\n") << "replaced, and whole after a cancel";
}

TEST(ComparePatterns, RefillsTheFormWithWhatItsFieldsAccept) {
  TestDirectory directory;
  WritePeaks("R.LST", "1.000 1\n");
  std::string rows;
  for (int i = 0; i < 150; ++i) rows += std::to_string(10 + i) + " 500\n";
  WritePeaks("FAR.LST", rows);
  const std::string forms =
      Compare(kCompare + "1013=0.01\n1014=0.99\n1020=500\n1034=2.5\n1018=on\nok\nR.LST\nFAR.LST\nno\nyes\n" +
              "1014=0.3\nok\nR.LST\nR.LST\nno\nyes\nok\ncancel\nexit\n")
          .messages;
  // The 32-bit 0.01 lies below its field's range, 0.99 above; the first sample has 100 peaks of 150 rows, none with a
  // partner.
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
