// Each written format keeps every point, for our own readers and for other programs of the field.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <random>
#include <sstream>

#include "patterns/InputHints.h"
#include "patterns/PatternFormats.h"
#include "support/TestFiles.h"

namespace talven {
namespace {

using test::ErrorOf;

const char* const kNames[] = {"ing", "cif", "cpi", "xy", "xye", "pat", "txt", "fxye", "xrdml"};

std::string Written(const std::string& name, const Pattern& pattern) {
  OutputText text;
  WritePatternAs(*FindPatternFormat(name), pattern, {.job = "SALT", .date = "1-1-2020"}, text);
  return text.Text();
}

bool IsRead(const std::string& name) {
  const std::string kind = name == "cif" ? "powder CIF" : name == "xrdml" ? "XRDML" : "";
  return std::ranges::none_of(PatternKinds(),
                              [&](const PatternKind& k) { return k.name == kind && !k.missing_library.empty(); });
}

/// Whole counts or others, angles of one step or of none, with sigma or without.
Pattern RandomPattern(std::mt19937& random, bool is_even) {
  const auto pick = [&random](int low, int high) { return std::uniform_int_distribution(low, high)(random); };
  Pattern pattern;
  pattern.wavelength = 1.5406;
  const int count = pick(2, 300);
  const double step = pick(1, 999) / 12345.0;
  const int divisor = pick(0, 1) == 0 ? 1 : 7;
  double angle = pick(-10, 100) / 10.0;
  for (int i = 0; i < count; ++i, angle += is_even ? step : step * pick(1, 9)) {
    pattern.two_theta.push_back(std::round(angle * 1e9) / 1e9);
    pattern.counts.push_back(static_cast<double>(pick(0, 9'999'999)) / divisor);
    if (divisor == 7 && !is_even) pattern.sigma.push_back(pick(1, 99) / 8.0);
  }
  if (is_even) pattern.step = (pattern.two_theta.back() - pattern.two_theta.front()) / (count - 1);
  return pattern;
}

void ExpectSamePoints(const Pattern& read, const Pattern& wanted, double tolerance) {
  EXPECT_EQ(read.counts, wanted.counts);
  ASSERT_EQ(read.two_theta.size(), wanted.two_theta.size());
  for (std::size_t i = 0; i < wanted.two_theta.size(); ++i)
    ASSERT_NEAR(read.two_theta[i], wanted.two_theta[i], tolerance) << i;
}

TEST(WrittenFormats, KeepEveryPoint) {
  std::mt19937 random(16);
  for (int round = 0; round < 40; ++round)
    for (const std::string name : kNames) {
      const bool is_even = round % 2 == 0;
      if ((!is_even && (name == "cpi" || name == "pat")) || !IsRead(name)) continue;
      const Pattern pattern = RandomPattern(random, is_even);
      SCOPED_TRACE(name + ", round " + std::to_string(round));
      const PatternFile file = ReadPattern("salt." + name, Written(name, pattern));
      ExpectSamePoints(file.pattern, pattern, 2e-8 * static_cast<double>(pattern.PointCount()));
      if (name == "xye" || name == "fxye") {
        EXPECT_EQ(file.pattern.sigma.size(), pattern.PointCount());
      }
      if (name == "cif") {
        EXPECT_EQ(file.pattern.sigma, pattern.sigma);
      }
      if (HoldsWavelength(*FindPatternFormat(name))) {
        EXPECT_EQ(file.pattern.wavelength, 1.5406);
      }
    }
}

TEST(WrittenFormats, TellWhereTheyHoldNoAngles) {
  Pattern pattern;
  pattern.two_theta = {10.0, 10.1, 10.2};
  pattern.counts = {1, 2, 3};
  pattern.step = 0.1;
  EXPECT_TRUE(HoldsAngles(PatternFormat::kCpi, pattern));
  pattern.two_theta[1] = 10.1001;
  EXPECT_FALSE(HoldsAngles(PatternFormat::kCpi, pattern));
  EXPECT_FALSE(HoldsAngles(PatternFormat::kPat, pattern));
  EXPECT_TRUE(HoldsAngles(PatternFormat::kCif, pattern));
}

TEST(WrittenFormats, HaveTheHeadsOfTheirKind) {
  Pattern pattern;
  pattern.two_theta = {4, 4.05, 4.1};
  pattern.counts = {20, 457, 94};
  pattern.step = 0.05;
  pattern.wavelength = 1.5406;
  EXPECT_EQ(Written("xy", pattern), "4 20\n4.05 457\n4.1 94\n");
  EXPECT_EQ(Written("cpi", pattern),
            "SIETRONICS XRD SCAN\n4\n4.1\n0.05\nXx\n1.5406\n1-1-2020\n1\nSALT\nSCANDATA\n20\n457\n94\n");
  EXPECT_EQ(Written("pat", pattern), "SALT\n  \n  \n  \n       4    0.05     4.1\n      20     457      94\n");
  EXPECT_EQ(Written("cif", pattern),
            "data_SALT\n_diffrn_radiation_wavelength 1.5406\n_pd_meas_2theta_range_min 4\n"
            "_pd_meas_2theta_range_max 4.1\n_pd_meas_2theta_range_inc 0.05\n_pd_meas_number_of_points 3\nloop_\n"
            "_pd_meas_counts_total\n20\n457\n94\n");
  Pattern uneven = pattern;
  uneven.step.reset();
  uneven.wavelength.reset();
  EXPECT_EQ(ErrorOf([&] { Written("cif", uneven); }), "cif: expected a wavelength for its head, found none");
  EXPECT_EQ(ErrorOf([&] { Written("pat", uneven); }),
            "pat: expected angles that keep one step, found others; ing, cif, xy, xye, txt, fxye and xrdml hold them");
}

bool IsInstalled(const std::string& program) { return std::system((program + " >/dev/null 2>&1").c_str()) == 0; }

/// Two columns of numbers, lines of text passed over.
Pattern ReadColumns(const std::string& text, std::size_t first) {
  Pattern pattern;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    std::vector<double> values;
    for (double value = 0.0; words >> value;) values.push_back(value);
    if (values.size() < first + 2) continue;
    pattern.two_theta.push_back(values[first]);
    pattern.counts.push_back(values[first + 1]);
  }
  return pattern;
}

/// Ten thousand points with whole counts, which xyconv writes in full.
Pattern LargePattern() {
  Pattern pattern;
  pattern.step = 0.01;
  pattern.wavelength = 1.5406;
  for (int i = 0; i < 10'000; ++i) {
    pattern.two_theta.push_back(4.0 + 0.01 * i);
    pattern.counts.push_back(i * 7919 % 100'003 % 9973);
  }
  return pattern;
}

TEST(WrittenFormats, AreReadByXyconv) {
  if (!IsInstalled("xyconv -v")) GTEST_SKIP() << "xyconv (package libxy-bin) is not installed";
  const test::TestDirectory directory;
  const Pattern pattern = LargePattern();
  for (const auto& [name, kind] : {std::pair("xy", "text"),
                                   {"xye", "text"},
                                   {"cpi", "cpi"},
                                   {"pat", "riet7"},
                                   {"cif", "pdcif"},
                                   {"xrdml", "xrdml"}}) {
    SCOPED_TRACE(name);
    test::WriteFile("salt", Written(name, pattern));
    ASSERT_EQ(std::system((std::string("xyconv -s -t ") + kind + " salt out.txt >log 2>&1").c_str()), 0);
    ExpectSamePoints(ReadColumns(test::ReadFile("out.txt"), 0), pattern, 1e-6);
  }
}

TEST(WrittenFormats, AreReadByGemmi) {
  if (!IsInstalled("/usr/bin/python3 -c 'import gemmi'")) GTEST_SKIP() << "python3-gemmi is not installed";
  const test::TestDirectory directory;
  const Pattern pattern = LargePattern();
  test::WriteFile("salt.cif", Written("cif", pattern));
  test::WriteFile("read.py",
                  "import gemmi\nb = gemmi.cif.read('salt.cif').sole_block()\n"
                  "first, step = [float(b.find_value('_pd_meas_2theta_range_' + n)) for n in ('min', 'inc')]\n"
                  "for i, c in enumerate(b.find_loop('_pd_meas_counts_total')): print(first + i * step, c)\n");
  ASSERT_EQ(std::system("/usr/bin/python3 read.py >out.txt"), 0);
  ExpectSamePoints(ReadColumns(test::ReadFile("out.txt"), 0), pattern, 1e-9);
}

TEST(InputHints, TellWhatTheOptionsCannotRead) {
  const std::string own =
      "_diffraction_radiation_wavelength 1.54\n_pd_meas_2theta_range_min 4\n_pd_meas_2theta_range_max 5\n"
      "_pd_meas_2theta_range_inc .5\n_pd_meas_step_count_time 1\nloop_\n    _pd_meas_counts_total\n";
  const std::string convert = "; talven-run convert --to ing brings it in";
  EXPECT_EQ(HintForCif("A.CIF", own + " 20.\n"), std::nullopt);
  EXPECT_EQ(HintForCif("A.CIF", own), "A.CIF: holds its pattern under other names than option 2 reads" + convert);
  EXPECT_EQ(HintForCif("A.CIF", "data_a\nloop_\n_pd_meas_intensity_total\n1\n"), HintForCif("A.CIF", own));
  EXPECT_EQ(
      HintForCif("A.CIF", "data_a\n_cell_length_a 5\n"),
      "A.CIF: holds no powder pattern; talven-run info tells what it is, and talven-run convert --to ing brings in "
      "other files with one");
  EXPECT_EQ(HintForTxt("A.TXT", "REM a\n4 1 x\n4.5,2\n"), std::nullopt);
  EXPECT_EQ(HintForTxt("A.TXT", "\" 4.0\",\" 4.1\" \n 1, 2 \n"),
            "A.TXT: is the table that option 8 writes, not one of X and Y" + convert);
  EXPECT_EQ(HintForTxt("A.TXT", "4,05 20\n"),
            "A.TXT: has decimal commas, which option 9 takes for gaps between numbers" + convert);
  EXPECT_EQ(HintForTxt("A.TXT", "4 1\n\n"), "A.TXT: line 2 is neither REM nor X and Y, as option 9 reads" + convert);
}

}  // namespace
}  // namespace talven
