#include <gtest/gtest.h>

#include <random>

#include "comparison/ComparePeakLists.h"
#include "comparison/ComparisonLog.h"
#include "comparison/PeakListFile.h"
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

/// An LST file of peaks at random.
std::string RandomList(std::mt19937& random, int peaks) {
  std::string text = "   Radiation Wavelength   1.54056\n   Marked peaks\n";
  for (int i = 0; i < peaks; ++i)
    text += std::to_string(5 + static_cast<int>(random() % 400)) + ".125" + " " + std::to_string(10 + random() % 5000) +
            "\n";
  return text;
}

struct Silence : LineListener {
  void Receive(std::string_view) override {}
};

TEST(ComparePatterns, GivesTheScoresOfTwoListsInMemory) {
  const TestDirectory directory;
  std::mt19937 random(7);
  for (const int peaks : {1, 3, 8, 40, 100}) {
    const std::string reference_text = RandomList(random, peaks), sample_text = RandomList(random, 8);
    WriteFile("R.LST", reference_text);
    WriteFile("S.LST", sample_text);
    RunSession({"abc", "C:"}, "1015=on\nok\n1015=on\n1012=on\nok\nR.LST\nS.LST\nno\nno\nexit\n");
    TextInput reference_file("R.LST", reference_text), sample_file("S.LST", sample_text);
    PeakList reference, sample;
    const float wavelength = ReadWavelength(reference_file);
    ReadPeakList(reference_file, reference);
    ReadPeakList(sample_file, sample);
    // The form leaves the start value of SAF for its own, which its range accepts.
    const ComparisonSettings settings{.SAF = 0.25F, .Apply = true, .MostInt = true};
    const auto score = ComparePeakLists(reference, wavelength, sample, settings);
    ASSERT_TRUE(score);
    OutputText log;
    Silence silence;
    ComparisonLog(log, silence).WriteResult(*score);
    EXPECT_TRUE(ReadFile("Talven_corvane.log").ends_with(log.Text())) << peaks << "\n" << log.Text();
    EXPECT_FALSE(ComparePeakLists(PeakList(), wavelength, sample, settings));
  }
}

}  // namespace
}  // namespace talven::test
