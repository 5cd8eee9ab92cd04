// Pattern files in memory: text to value, value to text.
#include <gtest/gtest.h>

#include "patterns/AscSpectrum.h"
#include "patterns/SmallCif.h"
#include "patterns/XyTxt.h"
#include "support/TestFiles.h"

namespace talven::test {
namespace {

/// An ING file. Range is first and last angle and the step, in lines.
std::string Ing(const std::string& range, int count, const std::string& rows) {
  return "any title\n1.54\n" + range + "\n4.\n" + std::to_string(count) + "\n" + rows;
}

using Case = std::pair<std::string, std::string>;

TEST(AscSpectrum, HasTheStrongestPointAtTwo) {
  const std::string head =
      "PE IR                   SPECTRUM    ASCII\n  -1\n10746P~1.ASC\ntalven\n4.0\n30\n"
      "SPECTRUM ONE,CPU32 MAIN 00.02.3000\nINGAAS\nNIR\nCAF2\n55562\n1.000000\n8.000000\nSTRONG\nRATIO\nSPECTRUM\n"
      "MAGNITUDE\nREFLECTANCE\nDOUBLE\nCOMBINED\n0\n#HDR\n 1\n 1\n#GR\nnm\nA\n0.00000011920928955078\n0.0\n";
  for (const Case& c :
       {Case{Ing("4\n40\n.05", 3, "4 50\n4.05 81\n4.1 -1\n"),
             "4000\n50\n719\n8\n10000\n50\n#DATA\n4000 1.234568\n4050 2.000000\n4100 -.024691\n"},
        Case{Ing(".05\n9.5\n.005", 3, ".05 4\n1000 4"), " 50\n10\n945\n8\n10000\n50\n#DATA\n 50 2.000000\n"},
        // a step of four digits at most; signs have no column of their own; the scale is not stored
        Case{Ing("-5\n15\n10", 2, "-5 19\n5 26\n"), "***\n 2\n8\n10000\n50\n#DATA\n*** 1.461538\n5000 2.000000\n"},
        // a blank line in the head: the second pass begins a line too early
        Case{Ing("\n4\n5\n.5", 3, "4 10\n4.5 20\n"),
             "4000\n500\n 2\n8\n10000\n50\n#DATA\n3000 0.400000\n4500 2.000000\n"},
        Case{Ing("1000\n1001\n.5", 3, "4 0\n4.5 -3\n"),
             "500\n 2\n8\n10000\n50\n#DATA\n4000 0.000000\n4500 0.000000\n"}}) {
    TextInput ing("ABC.ING", c.first);
    OutputText asc;
    WriteAscSpectrum(asc, ReadIngAsSpectrum(ing));
    EXPECT_EQ(asc.Text(), head + c.second);
  }
}

const std::string kCifHead =
    "_diffraction_radiation_wavelength 1.5406\n_pd_meas_2theta_range_min 4\n_pd_meas_2theta_range_max 6\n"
    "_pd_meas_2theta_range_inc .5\n_pd_meas_step_count_time 2.5\n";

TEST(SmallCif, GivesWhatStandsBeforeTheLineThatCannotBeRead) {
  const std::string loop = "loop_\n    _pd_meas_counts_total\n";
  const std::string head = "t\n       1.5406\n       4.0000\n       6.0000\n       0.5000\n       2.5000\n";
  const std::string rows = "        4.000         10.\n        4.500         20.\n";
  for (const auto& [text, written, error] :
       {std::tuple(kCifHead + loop + "10\n20\n", head + "                4\n" + rows, "none"),
        {kCifHead + loop + "10\n20 30\nx\n", head + "                4\n" + rows, "CIF, line 10: expected a count"},
        {kCifHead + "loop_\n", head + "                4\n", "CIF, line 7: expected _pd_meas_counts_total"},
        {kCifHead.substr(41) + loop + "10\n", "t\n", "none"},
        {"_pd_meas_2theta_range_inc\n", "t\n", "CIF, line 1: expected 1 number after _pd_meas_2theta_range_inc"}}) {
    TextInput cif("CIF", text);
    SmallCifNames names;
    const SmallCif read = ReadSmallCif(cif, names);
    OutputText ing;
    WriteIngOfCif(ing, "t", read.header, read.rows);
    EXPECT_EQ(ing.Text(), written) << text;
    const std::string told = read.error ? read.error->what() : "none";
    EXPECT_TRUE(told.starts_with(error)) << told;
  }
}

TEST(SmallCif, NamesOutliveAFile) {
  SmallCifNames names;
  TextInput first("CIF", kCifHead.substr(kCifHead.find('\n') + 1)), second("CIF", kCifHead.substr(0, 41));
  EXPECT_FALSE(ReadSmallCif(first, names).header);
  const SmallCif read = ReadSmallCif(second, names);
  ASSERT_TRUE(read.header);
  EXPECT_EQ(read.header->LastAngle, 6.0F);
  EXPECT_TRUE(read.error) << "no loop after it";
}

TEST(XyTxt, BecomesAPatternOfCopper) {
  TextInput txt("TXT", "REM\n4 1\nREM\n4.5 7\n5 3\n");
  const IngPattern pattern = ReadXyTxt(txt);
  // A remark after the first point: the second one counts for the first angle, but the rows begin with the first.
  EXPECT_EQ(pattern.header.FirstAngle, 4.5F);
  EXPECT_EQ(pattern.header.Step, 7.0F) << "the highest Y";
  EXPECT_EQ(pattern.header.LastAngle, 5.0F);
  EXPECT_EQ(pattern.rows.size(), 3U);
  TextInput blank("TXT", "4 1\n\n5 3\n");
  EXPECT_TRUE(ErrorOf([&] { ReadXyTxt(blank); }).starts_with("TXT, line 2: expected 2 numbers")) << "a blank line";
}

}  // namespace
}  // namespace talven::test
