// Measured patterns in: each kind that is plain text or XML, and what is refused.
#include "patterns/PatternFormats.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "support/TestFiles.h"

namespace talven {
namespace {

using test::ErrorOf;

bool IsMissing(std::string_view kind) {
  return std::ranges::any_of(PatternKinds(),
                             [&](const PatternKind& k) { return k.name == kind && !k.missing_library.empty(); });
}

std::string Positions(const std::string& what) {
  return "<positions axis=\"2Theta\" unit=\"deg\">" + what + "</positions>";
}

std::string Xrdml(const std::string& points, const std::string& axis = "Gonio") {
  return "<?xml version=\"1.0\"?>\n<xrdMeasurements><sample><name>NaCl</name></sample><xrdMeasurement>\n"
         "<usedWavelength intended=\"K-Alpha\"><kAlpha1>1.5406</kAlpha1><kAlpha2>1.5444</kAlpha2>"
         "<ratioKAlpha2KAlpha1>0.5</ratioKAlpha2KAlpha1></usedWavelength>\n<scan scanAxis=\"" +
         axis + "\"><dataPoints>" + points + "</dataPoints></scan></xrdMeasurement></xrdMeasurements>\n";
}

const std::string kEnds = Positions("<startPosition>10</startPosition><endPosition>11</endPosition>");
const std::string kFxye = "Salt\nBANK 1 3 3 CONST 1000 5 0 0 FXYE\n1000 10 3\n1005 20 4\n1010 30 5\n";
const std::string kIngHead = "Salt\n 1.54\n 4.00\n 4.10\n 0.05\n 10.\n";

struct Case {
  const char* name;
  std::string content;
  std::string format;
  std::vector<double> angles;
  std::vector<double> counts;
  double wavelength = 0.0;
  int notices = 0;
};

void ExpectPattern(const Case& c) {
  SCOPED_TRACE(c.name + (": " + c.content.substr(0, 200)));
  PatternFile file;
  ASSERT_EQ(ErrorOf([&] { file = ReadPattern(c.name, c.content); }), "(no error)");
  EXPECT_EQ(file.format, c.format);
  EXPECT_EQ(file.pattern.counts, c.counts);
  ASSERT_EQ(file.pattern.two_theta.size(), c.angles.size());
  for (std::size_t i = 0; i < c.angles.size(); ++i) EXPECT_NEAR(file.pattern.two_theta[i], c.angles[i], 1e-9);
  EXPECT_EQ(file.pattern.wavelength.value_or(0.0), c.wavelength);
  EXPECT_EQ(static_cast<int>(file.notices.size()), c.notices) << testing::PrintToString(file.notices);
}

TEST(Formats, ReadTables) {
  const std::vector<double> angles = {4.0, 4.05, 4.1};
  const std::vector<double> counts = {20, 457, 94};
  const Case kCases[] = {
      {"A.XY", "4.00 20\n4.05\t457\r\n\n 4.1 9.4e1\n", "XY", angles, counts},
      {"A.XY", "\xEF\xBB\xBF REM a remark\n     4.00000        20.0000    \n4.05 457\n4.10 94\n", "XY", angles, counts},
      {"A.xye", "# 2theta y su\n4.00 20 4\n4.05 457 21\n4.10 94 9\n", "XYE", angles, counts},
      {"A.xyd", "/* salt\n * Calibrated wavelength = 0.41\n */\n4.00 20\n! b\n4.05 457\n4.10 94\n", "XY", angles,
       counts, 0.41, 1},
      {"A.csv", "Angle,Counts\n4.00,20\n4.05,457\n4.10,94\n", "XY", angles, counts},
      {"A.csv", "Angle;Counts\n4,00;20\n4,05;457\n4,10;94\n", "XY", angles, counts},
      {"A.txt", "4,00 20,0\n4,05 457\n4,10 94\n", "XY", angles, counts},
      {"A.xy", "4.10 94\n4.05 457\n4.00 20\n", "XY", angles, counts, 0.0, 1},
      {"A.xy", "4.00 20\n4.05 457\n4.10 94", "XY", angles, counts, 0.0, 1},
      {"A.TXT", "\"  4.000\",\"  4.050\",\n\"  4.100\" \n     20,    457,     94 \n", "TXT", angles, counts},
      {"A.ING", kIngHead + "3\n 4.00 20.\n 4.05 457.  1 0 2\n 4.10 94.\n", "ING", angles, counts, 1.54},
      {"A.ING", "RAW sugar" + kIngHead.substr(4) + "3\n4 20\n4.05 457\n4.10 94\n", "ING", angles, counts, 1.54},
      {"A.xye", "0 1 1\n10.2 20 4\n11 3 1\n", "XYE", {0, 10.2, 11}, {1, 20, 3}},
      {"no name", kIngHead + " 4\n 4.00/20.\n 4.05,457.\n 4.10 94.\n", "ING", angles, counts, 1.54, 1},
      {"A.ING", "a\n1.54\n4\n4.1\n457\n1\n3\n4.00 20.\n4.05 457.\n4.10 94.\n", "ING", angles, counts, 1.54, 1},
      {"A.ING", "a\n1.54\n4\n4.03\n.015\n1\n3\n4.00 20.\n4.02 457.\n4.03 94.\n", "ING", {4, 4.015, 4.03}, counts, 1.54},
      {"A.dat", "Salt\nlambda= 1.494, T= 0\n 4.000 0.050 4.100 remark\n 20. 457.\n 94.\nthe end\n", "RIET7 DAT", angles,
       counts, 1.494, 1},
      {"A.dat", "   4.000   0.050   4.100\n      2012345678 4444444\n", "RIET7 DAT", angles, {20, 12345678, 4444444}},
      {"A.UXD", "_FILEVERSION=2\n_WL1=1.5406\n_DRIVE='COUPLED'\n_STEPSIZE=0.05\n_START=4.0\n_COUNTS\n20 457\n94\n",
       "UXD", angles, counts, 1.5406},
      {"A.xy", "4.00 20\r4.05 457\r4.10 94\r", "XY", angles, counts},
      {"A.xy", "4.00 20 # a\n4.05 457 ! b\n4.10 94\n", "XY", angles, counts},
      {"A.chi", "a.tif\n2-Theta Angle (Degrees)\nIntensity\n   3\n 4.00 20\n4.05 457\n4.10 94\n", "XY", angles, counts},
      {"A.csv",
       "Type,K-Alpha1\nK-Alpha1 wavelength,1.540598\nK-Alpha2 wavelength,1.544\nScan range,4,4.1\n4.00,20\n"
       "4.05,457\n4.10,94\n",
       "XY", angles, counts, 1.540598, 1},
      {"A.dat", "4 .05 4.1\n20 457 94 0 0 0 0\n", "RIET7 DAT", angles, counts},
      {"A.dat", "4 .05 4.1\n20 457 94 95\n", "RIET7 DAT", angles, counts, 0.0, 1},
      {"A.uxd", "_DRIVE = 'COUPLED'\n_STEPSIZE = 0.05\n_START = 4.0\n_STEPCOUNT = 2\n_COUNTS\n20 457 94\n", "UXD",
       angles, counts, 0.0, 1},
      {"A.fxye", "Salt\nBANK 1 3 3 CONS 400 5 0 0 FXYE\n400 20 3\n405 457 4\n410 94 5\n", "GSAS FXYE", angles, counts},
      {"A.fxye", kFxye, "GSAS FXYE", {10, 10.05, 10.1}, {10, 20, 30}},
      {"A.gsa",
       "Salt\nBANK 1 12 2 CONST 1000 5 0 0 STD\n" + std::string("       1       2       3       4       5") +
           "       6       7       8       9      10\n      11 2    12\n",
       "GSAS raw data",
       {10, 10.05, 10.1, 10.15, 10.2, 10.25, 10.3, 10.35, 10.4, 10.45, 10.5, 10.55},
       {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}},
  };
  for (const Case& c : kCases) ExpectPattern(c);
}

TEST(Formats, ReadCpiOfOthersAndOfSimulations) {
  const std::string tail = "0.050\nCu\n1.54056\n1-1-2020\n0.6\nSalt\nSCANDATA\n20\n457\n94\n";
  ExpectPattern({"A.CPI", "SIETRONICS XRD SCAN\n4.000\n4.100\n" + tail, "CPI", {4, 4.05, 4.1}, {20, 457, 94}, 1.54056});
  ExpectPattern(
      {"A.CPI", "SIETRONICS XRD SCAN\n4.000\n4.150\n" + tail, "CPI", {4, 4.05, 4.1}, {20, 457, 94}, 1.54056, 1});
  // The simulation of ABC from 4 degrees up to 5 in steps of 0.05: 19 points, for the stored step is a trace too large.
  std::string own =
      " SIETRONICS\n12.000\n5.000\n0.050\n Xx\n1.540000\n31-12-2024 at 12: 0: 0\n 1\n"
      " ABC from shelx HKL using Talven\n SCANDATA\n";
  Case simulated{"ABC.CPI", "", "CPI", {}, {}, 1.54, 1};
  for (int i = 0; i < 19; ++i) {
    own += std::to_string(i) + "\n";
    simulated.angles.push_back(4.0 + 0.05 * i);
    simulated.counts.push_back(i);
  }
  simulated.content = own;
  ExpectPattern(simulated);
}

TEST(Formats, ReadXrdml) {
  if (IsMissing("XRDML")) GTEST_SKIP() << "built without pugixml";
  const std::string factors = "<beamAttenuationFactors>1 10 1</beamAttenuationFactors>";
  const std::string list = Positions("<listPositions>10 10.2 11</listPositions>");
  const Case kCases[] = {
      {"a.xrdml", Xrdml(kEnds + "<intensities>1 2 3</intensities>"), "XRDML", {10, 10.5, 11}, {1, 2, 3}, 1.5406},
      {"a.xrdml",
       Xrdml(kEnds + factors + "<intensities>1 2 3</intensities>"),
       "XRDML",
       {10, 10.5, 11},
       {1, 2, 3},
       1.5406},
      {"a", Xrdml(list + factors + "<counts>1 2 3</counts>"), "XRDML", {10, 10.2, 11}, {1, 20, 3}, 1.5406, 1},
      {"a",
       Xrdml(Positions("<listPositions>10 <!-- a --> 10.2 11</listPositions>") + "<counts>1 2<!-- b --> 3</counts>"),
       "XRDML",
       {10, 10.2, 11},
       {1, 2, 3},
       1.5406},
  };
  for (const Case& c : kCases) ExpectPattern(c);
  const PatternFile file = ReadPattern("a.xrdml", Xrdml(kEnds + "<intensities>1 2 3</intensities>"));
  EXPECT_EQ(file.pattern.title, "NaCl");
  EXPECT_EQ(file.pattern.wavelength_alpha2, 1.5444);
  EXPECT_EQ(file.pattern.alpha2_ratio, 0.5);
  std::string two = Xrdml(kEnds + "<intensities>1 2 3</intensities>");
  two.insert(two.find("</xrdMeasurement>"), "<scan><dataPoints>" + kEnds + "<counts>7 8</counts></dataPoints></scan>");
  EXPECT_EQ(ReadPattern("a.xrdml", two).notices, std::vector<std::string>{"The first of 2 scans was read."});
  EXPECT_EQ(ReadPattern("a.xrdml", two, {.scan = 2}).pattern.counts, (std::vector<double>{7, 8}));
  EXPECT_EQ(ErrorOf([&] { ReadPattern("a.xrdml", two, {.scan = 3}); }), "a.xrdml: expected scan 3, found 2 scans");
}

TEST(Formats, ReadPowderCif) {
  if (IsMissing("powder CIF")) GTEST_SKIP() << "built without gemmi";
  const std::string range =
      "_pd_meas_2theta_range_min 4\n_pd_meas_2theta_range_max 4.1\n_pd_meas_2theta_range_inc .05\n";
  const std::vector<double> angles = {4.0, 4.05, 4.1};
  const std::vector<double> counts = {20, 457, 94};
  const Case kCases[] = {
      {"a.cif",
       "data_salt\n_diffrn_radiation_wavelength 1.5402\n" + range + "loop_\n_pd_meas_counts_total\n20 457 94\n",
       "powder CIF", angles, counts, 1.5402},
      {"a.cif",
       "data_a\n" + range + "loop_ _PD_Meas.Intensity_Total _pd_proc_ls_weight\n20(4) 0.1 457(20) .\n94(9) ?\n",
       "powder CIF", angles, counts},
      {"a.cif", "data_a\nloop_\n_pd_proc_2theta_corrected\n_pd_proc_intensity_total\n4.00 20\n4.05 457\n4.1 94\n",
       "powder CIF", angles, counts},
      {"a.cif",
       "data_a\n" + range + "loop_\n_pd_meas_counts_total\n20 . 94\n",
       "powder CIF",
       {4, 4.1},
       {20, 94},
       0.0,
       1},
      {"NEW.CIF",
       "_diffraction_radiation_wavelength 1.5400\n" + range + "_pd_meas_step_count_time 10.0\nloop_\n" +
           "    _pd_meas_counts_total\n                    20.\n                   457.\n                    94.\n",
       "powder CIF", angles, counts, 1.54},
  };
  for (const Case& c : kCases) ExpectPattern(c);
  const PatternFile file = ReadPattern("a.cif", kCases[1].content);
  EXPECT_EQ(ReadPattern("a.cif", "data_\n" + range + "loop_ _pd_meas_counts_total 20 457 94\n").pattern.title, "");
  EXPECT_EQ(file.pattern.sigma, (std::vector<double>{4, 20, 9}));
  const std::string lines = "loop_ _diffrn_radiation_wavelength _diffrn_radiation_wavelength_wt\n1.5406 1 1.5444 .5\n";
  EXPECT_EQ(ReadPattern("a.cif", kCases[1].content + lines).pattern.alpha2_ratio, 0.5);
}

TEST(Formats, ReadPowderCifsThatTellLess) {
  if (IsMissing("powder CIF")) GTEST_SKIP() << "built without gemmi";
  const std::string start = "data_a\n_diffrn_radiation_wavelength.value 1.5402(2)\n";
  const std::string counts = "loop_\n_pd_meas_counts_total\n20 457 94\n";
  const std::vector<double> angles = {4.0, 4.05, 4.1};
  const std::string first = start + "_pd_meas_2theta_range_min 4\n";
  const Case kCases[] = {
      {"no end", first + "_pd_meas_2theta_range_inc .05\n" + counts, "powder CIF", angles, {20, 457, 94}, 1.5402},
      {"no step",
       first + "_pd_meas_2theta_range_max 4.1\n_pd_meas_number_of_points 3\n" + counts,
       "powder CIF",
       angles,
       {20, 457, 94},
       1.5402},
      // d = 1.5402 / (2 sin(theta)) of 2theta 60, 90 and 180.
      {"spacings",
       start + "loop_\n_pd_proc_d_spacing\n_pd_proc_intensity_net\n1.5402 5\n1.0890858643835 6\n0.7701 7\n",
       "powder CIF",
       {60, 90, 180},
       {5, 6, 7},
       1.5402,
       1},
      {"fewer rows than told",
       start + "_pd_meas_number_of_points 4\nloop_\n_pd_meas_2theta_scan\n_pd_meas_counts_total\n4 1\n5 2\n6 3\n",
       "powder CIF",
       {4, 5, 6},
       {1, 2, 3},
       1.5402,
       1},
      {"cut",
       start + "loop_\n_pd_meas_2theta_scan\n_pd_meas_counts_total\n4 1\n5 2",
       "powder CIF",
       {4, 5},
       {1, 2},
       1.5402,
       1},
  };
  for (const Case& c : kCases) ExpectPattern(c);
}

TEST(Formats, RefuseWhatIsNotSound) {
  struct Refused {
    const char* name;
    std::string content;
    std::string error;
    const char* kind = "";
  };
  const std::string billion = "1 1000000000 9 CONST 1000 5 0 0 FXYE\n1000 1 1\n";
  const std::string still = Positions("<commonPosition>30.5</commonPosition>") + "<intensities>1 2</intensities>";
  const Refused kCases[] = {
      {"a.xy", "", "a.xy: expected a pattern in a known format, found an empty file"},
      {"a.ras", "*RAS_DATA_START\n*RAS_INT_START\n10.0 5 1.0\n10.5 6 1.0\n",
       "a.ras: expected a pattern in a known format, found text of a Rigaku instrument; export it as RASX, or as XY"},
      {"a.txt", "Dear all,\n", "a.txt: expected a pattern in a known format, found none"},
      {"a.xy", std::string("1 2\n2 3\n\0", 9),
       "a.xy: expected a pattern in a known format, found binary data of no known kind"},
      {"a.xy",
       "\xFF\xFE"
       "1 2",
       "a.xy: expected text in UTF-8 or ASCII, found UTF-16"},
      {"a.svg", "<?xml version=\"1.0\"?><svg/>",
       "a.svg: expected a pattern in a known format, found XML of another kind"},
      {"a.xy", "4 1\n5 2\nx 3\n", "a.xy, line 3: expected 2 numbers, found \"x 3\""},
      {"a.xy", "4 1\n5 nan\n", "a.xy, line 2: expected 2 numbers, found \"5 nan\""},
      {"a.xy", "4 1 2 3\n", "a.xy, line 1: expected two or three columns, found 4"},
      {"a.xy", "4 1\n5 2\n4.5 3\n", "a.xy, line 3: expected angles that go on rising, found 4.5 after 5"},
      {"a.xy", "4 1\n4 2\n", "a.xy: expected a scan of 2theta, found 2theta standing still at 4 degrees"},
      {"a.xy", "400 1\n500 2\n", "a.xy, line 1: expected an angle 2theta of at most 180 degrees, found 400"},
      {"a.xy", "4 1\n", "a.xy: expected two points at least, found 1"},
      {"a.csv", "4,05,2,5\n",
       "a.csv, line 1: expected columns that stand apart by more than the decimal comma, found \"4,05,2,5\""},
      {"a.xy", "4.05 1,500\n", "a.xy, line 1: expected points or commas as decimal signs, not both, found \"1,500\""},
      {"a.ING", kIngHead + "1000000000\n4 1\n5 2\n", "a.ING: expected 1000000000 rows, as line 7 tells, found 2"},
      {"a.dat", "t\n4 0.00000001 94\n 1 2 3\n",
       "a.dat, line 3: expected 9000000001 counts by start, step and end, found 3"},
      {"a.dat", "4 0 94\n 1 2 3\n", "a.dat, line 1: expected a step that is not 0, found 0"},
      {"a.dat", "t\n4 1 5\n 1 20 1 30 1 40\n",
       "a.dat, line 3: expected 2 counts by start, step and end, found 4 more on the line"},
      {"a.chi", "t\n2-Theta\nI\n 1000000000\n 4 1\n 5 2\n",
       "a.chi: expected 1000000000 rows, as the number ahead of them tells, found 2"},
      {"a.pat", "Mirade/Talven Shelx HKL to RIET7 DAT\n\n\n\n  12.000   0.050  12.050\n 1 2 3 4 5 6 7 8 9 10\n",
       "a.pat: expected a head with the first angle, found the length of the title, as simulations write it; the ING "
       "or "
       "XY file of the job holds the same pattern"},
      {"a.cpi", "SIETRONICS\n4\n5\n0\nCu\n1.54\nd\n1\nt\nSCANDATA\n1\n2\n",
       "a.cpi: expected a step that is not 0, found 0"},
      {"a.cpi", "SIETRONICS\n4\n90\n.05\nCu\n1.54\nd\n1\nt\nSCANDATA\n1\n",
       "a.cpi: expected 1721 counts by first and last angle and step of the head, found 1"},
      {"a.fxye", "t\nBANK " + billion, "a.fxye, line 4: expected point 2 of 1000000000, found end of file"},
      {"a.fxye", "t\nBANK 1 9 9 SLOG 1 2 3 4 FXYE\n",
       "a.fxye, line 2: expected data of constant wavelength (CONST), found \"SLOG\""},
      {"a.uxd", "_DRIVE='PHI'\n_COUNTS\n1 2\n", "a.uxd, line 2: expected a scan of 2theta, found a scan of phi"},
      {"a.uxd", "_DRIVE='COUPLED'\n_START=4\n_STEPSIZE=0\n_COUNTS\n1 2\n",
       "a.uxd: expected a step that is not 0, found 0"},
      {"a.uxd", "_DRIVE='COUPLED'\n_START=4\n_STEPSIZE=1\n_STEPCOUNT=3\n_COUNTS\n1 2\n",
       "a.uxd: expected 3 points, as _STEPCOUNT tells, found 2"},
      {"a.raw", "RAW4.00", "a.raw: expected a pattern in a known format, found none"},
      {"a.xrdml", Xrdml(still, "Omega"),
       "a.xrdml: expected a scan of 2theta, found a scan of Omega with 2theta at 30.5 degrees", "XRDML"},
      {"a.xrdml", Xrdml(kEnds + "<counts>1 nan</counts>"), "a.xrdml: expected numbers as counts, found \"nan\"",
       "XRDML"},
      {"a.xrdml", Xrdml(kEnds), "a.xrdml: expected intensities or counts among the data points, found neither",
       "XRDML"},
      {"a.xrdml", "<!DOCTYPE a [<!ENTITY b \"c\">]><xrdMeasurements/>",
       "a.xrdml: expected XML without a document type, found one", "XRDML"},
      {"a.xrdml", "<xrdMeasurements>\n<a>\n",
       "a.xrdml, line 2: expected XML, found text that is not XML or ends too early (Start-end tags mismatch)",
       "XRDML"},
      {"a.xrdml", "<xrdMeasurements/>", "a.xrdml: expected a scan, found none", "XRDML"},
      {"a.cif", "data_a\nloop_\n_atom_site_label\nC1\n",
       "a.cif: expected a powder pattern (_pd_meas_counts_total and its like), found a structure without a pattern",
       "powder CIF"},
      {"a.cif",
       "data_a\n_pd_meas_number_of_points 1000000000\nloop_\n_pd_meas_2theta_scan\n_pd_meas_counts_total\n4 1\n",
       "a.cif: expected 1000000000 rows of counts, as the number of points tells, found 1", "powder CIF"},
      {"a.cif", "data_a\n_b 'c\n", "a.cif, line 2: expected CIF, found something else (unterminated 'string')",
       "powder CIF"},
      {"a.cif", "data_a\nloop_\n_pd_meas_time_of_flight\n_pd_meas_counts_total\n1 2\n3 4\n",
       "a.cif, line 2: expected 2theta of the counts (_pd_meas_2theta_scan or _pd_meas_2theta_range_min, _max, _inc), "
       "found times of flight",
       "powder CIF"},
  };
  for (const Refused& c : kCases) {
    if (IsMissing(c.kind)) continue;
    EXPECT_EQ(ErrorOf([&] { ReadPattern(c.name, c.content); }), c.error) << c.content.substr(0, 200);
  }
}

}  // namespace
}  // namespace talven
