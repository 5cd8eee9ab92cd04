// The commands of talven-run, whole runs in a scratch directory: beside the sessions of the terminal program that do
// the same, and against figures worked out by hand.
#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <sstream>

#include "RunTool.h"
#include "crystal/ScatteringTables.h"
#include "support/Session.h"
#include "support/TestFiles.h"

namespace talven::test {
namespace {

namespace fs = std::filesystem;

/// The value in a column of the first row of a table.
std::string ValueOf(const std::string& table, const std::string& column) {
  std::istringstream names(LineOf(table, 1)), values(LineOf(table, 2));
  for (std::string name, value; std::getline(names, name, '\t') && (std::getline(values, value, '\t') || true);)
    if (name == column) return value;
  return "(no column " + column + ")";
}

/// The counts of an ING file after its head.
std::vector<double> CountsOf(const std::string& ing) {
  std::istringstream lines(ing);
  std::vector<double> counts;
  std::string line;
  for (int i = 0; i < 7; ++i) std::getline(lines, line);
  while (std::getline(lines, line)) counts.push_back(std::stod(line.substr(12)));
  return counts;
}

std::string HklRow(int h, int k, int l, double f2) {
  char line[40];
  std::snprintf(line, sizeof line, "%4d%4d%4d%8.2f%8.2f\n", h, k, l, f2, 0.5);
  return line;
}

const std::string kIns =
    "TITL tetragonal\nCELL 0.71073 5 5 7 90 90 90\nZERR 1 0 0 0 0 0 0\nLATT 1\nSYMM -Y, X, Z\nSYMM -X, -Y, Z\n"
    "SYMM Y, -X, Z\nSYMM X, -Y, -Z\nSYMM -X, Y, -Z\nSYMM Y, X, -Z\nSYMM -Y, -X, -Z\nSFAC FE\nUNIT 1\nFVAR 1\n"
    "FE1 1 0 0 0 11 0.02\nHKLF 4\nEND\n";
const std::string kIng = "title\n1.54\n10\n12\n0.05\n1\n41\n";

/// An atom at the origin of a tetragonal cell, the rows of an HKL file, and a pattern.
std::string CifOf(const std::string& hkl) {
  return "data_abc\n_cell_length_a 5\n_cell_length_b 5\n_cell_length_c 7\n_cell_angle_alpha 90\n_cell_angle_beta 90\n"
         "_cell_angle_gamma 90\n_diffrn_radiation_wavelength 0.71073\n_space_group_name_H-M_alt 'P 4/m m m'\n"
         "loop_\n_atom_site_label\n_atom_site_type_symbol\n_atom_site_fract_x\n_atom_site_fract_y\n"
         "_atom_site_fract_z\n_atom_site_U_iso_or_equiv\nFe1 Fe 0 0 0 0.02\n"
         "_shelx_hkl_file\n;\n" +
         hkl + ";\n";
}
const std::string kPowderCif =
    "data_p\n_cell_length_a 5\nloop_\n_pd_proc_2theta_corrected\n_pd_proc_intensity_total\n10.0 5\n10.1 6\n10.2 7\n";

struct RunCommands : testing::Test, TestDirectory {
  RunCommands() {
    std::string unique, all;
    for (int h = 0; h <= 4; ++h)
      for (int k = 0; k <= h; ++k)
        for (int l = 0; l <= 4; ++l) {
          if (h + k + l == 0) continue;
          const double f2 = 100.0 + 31.0 * h + 17.0 * k * l + 5.0 * l;
          unique += HklRow(h, k, l, f2);
          for (const auto& [i, j, m] : Half(h, k, l)) all += HklRow(i, j, m, f2);
        }
    WriteFile("ABC.INS", kIns);
    WriteFile("ABC.HKL", unique);
    fs::create_directory("whole");
    WriteFile("whole/ABC.INS", kIns);
    WriteFile("whole/ABC.HKL", all);
  }

  /// The equivalents of an index in 4/mmm whose first index that is not 0 is positive.
  static std::set<std::tuple<int, int, int>> Half(int h, int k, int l) {
    std::set<std::tuple<int, int, int>> half;
    for (int signs = 0; signs < 16; ++signs) {
      const int i = (signs & 8) != 0 ? k : h, j = (signs & 8) != 0 ? h : k;
      const std::tuple index{(signs & 1) != 0 ? -i : i, (signs & 2) != 0 ? -j : j, (signs & 4) != 0 ? -l : l};
      if (index > std::tuple(0, 0, 0)) half.insert(index);
    }
    return half;
  }

  static void ExpectSame(const std::string& made, const std::string& session, int without_line = 0) {
    std::string a = ReadFile(made), b = ReadFile(session);
    if (without_line > 0) {
      a = Replaced(a, LineOf(a, without_line), "");
      b = Replaced(b, LineOf(b, without_line), "");
    }
    EXPECT_EQ(a, b) << made;
  }
};

TEST_F(RunCommands, SimulateGivesTheFilesOfOptions1And7) {
  std::string fcf;
  for (int i = 1; i < 5; ++i)
    fcf += std::string("   ") + std::to_string(i) + "   1   0      400.00      401.00      1.00 o\n";
  WriteFile("ABC.FCF", fcf);
  struct Case {
    std::string option, answers, arguments, kept;
  };
  for (const Case& c :
       {Case{"1", "", "ABC.INS", "73"},
        Case{"1", "1006=2\n1014=0.02\n1030=10\n1015=on\n1016=30\n1017=3\n",
             "ABC.HKL --wavelength mo --step "
             "0.02 --two-theta-min 10 --two-theta-max 30 --broadening 3",
             "35"},
        Case{"1", "1006=3\n1012=off\n1018=off\n1024=off\n",
             "ABC.INS --wavelength cell --no-symmetrical-peaks --no-powder-correction --no-expansion", "74"},
        Case{"7", "1006=3\n1013=1.1\n", "ABC.FCF --wavelength 1.1", "4"}, Case{"7", "", "ABC.INS --data fcf", "4"}}) {
    RunSession({}, "1005=ABC\nok\n\n1006=" + c.option + "\nok\n" + c.answers + "ok\nexit\n");
    const Outcome outcome = RunTool("simulate -o out " + c.arguments);
    EXPECT_EQ(outcome.exit_code, 0) << outcome.messages;
    EXPECT_EQ(ValueOf(outcome.output, "kept"), c.kept);
    for (const char* extension : {".ING", ".XY", ".PAT"})
      ExpectSame(std::string("out/ABC") + extension, std::string("ABC") + extension);
    ExpectSame("out/ABC.CPI", "ABC.CPI", 7);
    ExpectSame("out/ABC.sbrag", "SBRAG.LST");
  }
}

TEST_F(RunCommands, SymmetryMakesOfUniqueRowsWhatTheWholeListGives) {
  if (!HasScatteringTables()) GTEST_SKIP() << "built without gemmi";
  EXPECT_EQ(RunTool("simulate whole/ABC.INS").messages, "") << "closed under its symmetry";
  const Outcome uneven = RunTool("simulate ABC.INS --no-expansion -o signs");
  EXPECT_TRUE(uneven.messages.starts_with("ABC.INS: the list is not closed under the symmetry of its structure: "));
  EXPECT_TRUE(uneven.messages.ends_with("; --expand symmetry mends it\n")) << uneven.messages;
  const Outcome outcome = RunTool("simulate ABC.INS --expand symmetry -o new");
  EXPECT_EQ(outcome.messages, "");
  EXPECT_EQ(ValueOf(outcome.output, "merged"), std::to_string(CountLines(ReadFile("whole/ABC.sbrag"))));
  EXPECT_EQ(ValueOf(outcome.output, "unique"), ValueOf(outcome.output, "kept"));
  EXPECT_EQ(CountsOf(ReadFile("new/ABC.ING")), CountsOf(ReadFile("whole/ABC.ING")));
  EXPECT_NE(CountsOf(ReadFile("signs/ABC.ING")), CountsOf(ReadFile("whole/ABC.ING")));
}

TEST_F(RunCommands, TextbookPatternsHaveWidthAreaAndFactor) {
  // By hand: 1 0 0 and 0 0 2 at 1.5406 lie at 17.7239 and 25.4321 degrees; at the same F squared their heights are as
  // the factors (1 + cos^2 2theta)/(sin^2 theta cos theta), 81.306 and 38.409.
  WriteFile("ABC.HKL", HklRow(1, 0, 0, 100) + HklRow(0, 0, 2, 100));
  const Outcome outcome = RunTool(
      "simulate ABC.INS --textbook --fwhm 0.2 --step 0.01 --no-expansion --wavelength 1.5406 --formats ing,xy "
      "--standard-heads");
  EXPECT_EQ(outcome.exit_code, 0) << outcome.messages;
  EXPECT_EQ(ValueOf(outcome.output, "fwhm"), "0.2");
  EXPECT_EQ(ValueOf(outcome.output, "strongest"), "17.720");
  const std::vector<double> counts = CountsOf(ReadFile("ABC.ING"));
  const auto at = [&counts](double angle) { return counts[static_cast<std::size_t>(std::lround((angle - 4) / 0.01))]; };
  EXPECT_EQ(at(17.72), 99000);
  EXPECT_NEAR(at(25.43) / at(17.72), 38.409 / 81.306, 0.002);
  EXPECT_NEAR(0.5 * (at(17.62) + at(17.82)) / at(17.72), 0.5, 0.01) << "half the height at half the width";
  EXPECT_NEAR(at(22.0), 99000 / (1 + 42.76 * 42.76) * 0.405 * 2.4, 40) << "Lorentzian tails alone, and no floor";
  EXPECT_EQ(LineOf(ReadFile("ABC.XY"), 1).find("REM"), std::string::npos);
  EXPECT_FALSE(Exists("ABC.CPI"));
}

TEST_F(RunCommands, AModelIsCalculated) {
  if (!HasScatteringTables()) GTEST_SKIP() << "built without gemmi";
  fs::remove("ABC.HKL");
  const Outcome outcome = RunTool("simulate ABC.INS --two-theta-max 60");
  EXPECT_EQ(outcome.exit_code, 0) << outcome.messages;
  EXPECT_EQ(ValueOf(outcome.output, "source"), "model");
  // One atom at the origin of a primitive cell has no absences: half a sphere.
  int count = 0;
  for (int h = -3; h <= 3; ++h)
    for (int k = -3; k <= 3; ++k)
      for (int l = -4; l <= 4; ++l) {
        const double s = 0.5 * 1.54 * std::sqrt((h * h + k * k) / 25.0 + l * l / 49.0);
        if (std::tuple(h, k, l) > std::tuple(0, 0, 0) && s < 0.5) ++count;
      }
  EXPECT_EQ(ValueOf(outcome.output, "kept"), std::to_string(count));
  EXPECT_EQ(ValueOf(outcome.output, "merged"), std::to_string(count)) << "nothing is copied";
  const Outcome fcf = RunTool("fcalc ABC.INS --two-theta-max 30");
  EXPECT_EQ(fcf.output, "file\tatoms\toperators\trows\twavelength\toutput\nABC.INS\t1\t16\t" +
                            ValueOf(fcf.output, "rows") + "\t0.71073\tABC.fcf\n");
  EXPECT_EQ(RunTool("fcalc ABC.INS --two-theta-max 30").exit_code, 2) << "an FCF may be somebody's";
  EXPECT_EQ(RunTool("fcalc ABC.INS --replace").messages,
            "ABC.INS: no HKL beside it says which rows are wanted: give --two-theta-max\n");
}

TEST_F(RunCommands, ACifIsAStructureReflectionsOrAPattern) {
  if (!HasScatteringTables()) GTEST_SKIP() << "built without gemmi";
  WriteFile("S.cif", CifOf(ReadFile("ABC.HKL")));
  WriteFile("P.cif", kPowderCif);
  const Outcome info = RunTool("info S.cif P.cif");
  EXPECT_EQ(LineOf(info.output, 2), "S.cif\tmodel\tCIF\t1\t\t\t\t0.71073\tabc") << info.messages;
  EXPECT_EQ(LineOf(info.output, 3), "P.cif\tpattern\tpowder CIF\t3\t10\t10.2\t0.1\t\tp") << info.messages;
  // Each as from the INS, a CIF by its atoms and the rows within it.
  for (const char* data : {"model", "hkl"}) {
    const std::string options = std::string(" --expand symmetry -o ") + data + " --data " + data;
    const Outcome cif = RunTool("simulate S.cif" + options);
    EXPECT_EQ(cif.exit_code, 0) << cif.messages;
    EXPECT_EQ(RunTool("simulate ABC.INS" + options).exit_code, 0);
    EXPECT_EQ(CountsOf(ReadFile(std::string(data) + "/S.ING")), CountsOf(ReadFile(std::string(data) + "/ABC.ING")));
  }
  EXPECT_EQ(ValueOf(RunTool("simulate S.cif").output, "source"), "model");
}

TEST_F(RunCommands, ConversionsAndReformattingAreThoseOfTheOptions) {
  std::string ing = kIng;
  for (int i = 0; i <= 40; ++i) ing += std::to_string(10 + 0.05 * i) + " " + std::to_string(100 + i * i % 37) + "\n";
  WriteFile("P.ING", ing);
  RunSession({}, "1005=P\nok\n\n1006=3\nok\n1006=8\nok\n1006=4\nok\n1006=3\n1013=1.2\n1014=0.1\nok\nexit\n");
  EXPECT_EQ(RunTool("convert P.ING --classic --to cif,txt,asc -o out").output,
            "file\tformat\tpoints\twavelength\toutputs\nP.ING\tING\t41\t1.54\tout/P.CIF out/P.TXT out/P.ASC\n");
  ExpectSame("out/P.CIF", "NEW.CIF");
  ExpectSame("out/P.TXT", "P.TXT");
  EXPECT_NE(ReadFile("out/P.ASC").find("\n10000 "), std::string::npos);
  EXPECT_EQ(ValueOf(RunTool("reformat P.ING --wavelength 1.2 --step 0.1 -o out").output, "wavelength"), "1.2");
  ExpectSame("out/P.ING", "NEW.ING");
  EXPECT_EQ(RunTool("reformat P.ING --step 0.1").exit_code, 2) << "the input would be replaced";
  WriteFile("N.xye", "10 5 1\n10.1 6 1\n10.2 7 1\n");
  EXPECT_EQ(RunTool("convert N.xye --to xy").exit_code, 0) << "no wavelength is wanted here";
  const Outcome without = RunTool("convert N.xye --to ing -o out");
  EXPECT_EQ(without.exit_code, 1);
  EXPECT_NE(without.messages.find("wavelength"), std::string::npos) << without.messages;
  EXPECT_EQ(RunTool("convert N.xye --to ing -o out --wavelength 1.2").exit_code, 0);
  EXPECT_NE(ReadFile("out/N.ING").find("1.2"), std::string::npos);
}

TEST_F(RunCommands, CompareGivesTheScoresAndTheLog) {
  const std::string head = "   Radiation Wavelength   1.54056\n   Marked peaks\n";
  WriteFile("R.LST", head + "10 1000\n20 2000\n31 500\n");
  WriteFile("S.LST", head + "10.1 1000\n20.1 1900\n40 100\n");
  RunSession({}, "1005=x\nok\n\n1015=on\nok\nok\nR.LST\nS.LST\nyes\nR.LST\nno\nno\nexit\n");
  const std::string log = ReadFile("Talven_corvane.log");
  const Outcome outcome = RunTool("compare R.LST S.LST R.LST --log out.log");
  EXPECT_EQ(outcome.exit_code, 0) << outcome.messages;
  EXPECT_EQ(LineOf(outcome.output, 3), "R.LST\t3\t0\t0\t1.0000\t1.0000\t1.000");
  EXPECT_NE(log.find(ValueOf(outcome.output, "m1") + " " + ValueOf(outcome.output, "m2")), std::string::npos) << log;
  const auto without_folders = [](const std::string& text) {
    std::istringstream lines(text);
    std::string rest;
    for (std::string line; std::getline(lines, line);)
      if (line.find(".LST ") == std::string::npos) rest += line + "\n";
    return rest;
  };
  EXPECT_EQ(without_folders(ReadFile("out.log")), without_folders(log));
  EXPECT_EQ(RunTool("compare R.LST").exit_code, 2);
  EXPECT_EQ(RunTool("compare R.LST S.LST --log S.LST").exit_code, 2);
  EXPECT_EQ(RunTool("compare R.LST S.LST --angtol 2").messages.substr(0, 66),
            "talven-run compare: --angtol: expected a number from 0.01 to 1.5, ");
}

TEST_F(RunCommands, InfoTellsKindsApart) {
  if (!HasScatteringTables()) GTEST_SKIP() << "built without gemmi";
  WriteFile("P.ING", kIng + "10 1\n10.05 2\n");
  WriteFile("R.LST", "   Radiation Wavelength   1.54056\n   Marked peaks\n10 1000\n20 2000\n");
  WriteFile("note.txt", "nothing\n");
  const Outcome outcome = RunTool("info ABC.INS ABC.HKL R.LST note.txt");
  EXPECT_EQ(outcome.output,
            "file\tkind\tformat\tpoints\tfirst\tlast\tstep\twavelength\ttitle\n"
            "ABC.INS\tmodel\tSHELX INS\t1\t\t\t\t0.71073\ttetragonal\nABC.HKL\treflections\tSHELX HKL\t74\t\t\t\t\t\n"
            "R.LST\tpeaks\tLST\t2\t10\t20\t\t1.54056\t\nnote.txt\t\t\t\t\t\t\t\t\n");
  EXPECT_EQ(outcome.exit_code, 1);
}

TEST_F(RunCommands, OptionsAreRefusedInTheWordsOfTheForm) {
  using Row = std::pair<std::string, std::string>;
  for (const auto& [arguments, told] :
       {Row{"--step 7", "--step: expected a number from 0.001 to 5, found \"7\""},
        Row{"--broadening 0", "--broadening: expected a number from 1 to 10, found \"0\""},
        Row{"--wavelength cobalt", "--wavelength: expected Cu, Mo, cell or a number from 0.1 to 3.5, found \"cobalt\""},
        Row{"--formats ing,xyz", "--formats: expected some of ing, cpi, xy, pat and sbrag, found \"xyz\""},
        Row{"--data cif", "--data: expected hkl, fcf or model, found \"cif\""},
        Row{"--fwhm 0.2", "--fwhm requires --textbook"},
        Row{"--expand symmetry --no-expansion", "--expand symmetry and --no-expansion exclude each other"},
        Row{"--textbook --broadening 2", "--textbook and --broadening exclude each other"}}) {
    const Outcome outcome = RunTool("simulate ABC.INS " + arguments);
    EXPECT_EQ(outcome.exit_code, 2) << arguments;
    EXPECT_EQ(LineOf(outcome.messages, 1), "talven-run simulate: " + told);
  }
  EXPECT_FALSE(Exists("ABC.ING"));
}

TEST_F(RunCommands, AStemOfAnyKindStandsOnOneLineOfAHead) {
  const std::string stem = "a_stem_longer_than_any_job_name\x01\xC3\xA4";
  for (const char* extension : {".INS", ".HKL"}) fs::copy_file(std::string("ABC") + extension, stem + extension);
  EXPECT_EQ(RunTool("simulate " + stem + ".INS").exit_code, 0);
  EXPECT_EQ(LineOf(ReadFile(stem + ".ING"), 1).substr(0, 45), Replaced(stem, "\x01", " ") + " (Talven)");
  EXPECT_EQ(CountsOf(ReadFile(stem + ".ING")), (RunTool("simulate ABC.INS"), CountsOf(ReadFile("ABC.ING"))));
}

TEST_F(RunCommands, FailuresNameFileAndReason) {
  WriteFile("NOCELL.INS", "TITL x\n");
  WriteFile("NOCELL.HKL", HklRow(1, 0, 0, 1));
  WriteFile("LONE.HKL", HklRow(1, 0, 0, 1));
  WriteFile("BAD.INS", kIns);
  WriteFile("BAD.HKL", HklRow(1, 0, 0, 9) + "text\n" + HklRow(1, 1, 0, 9));
  const Outcome outcome = RunTool("simulate NOCELL.INS LONE.HKL BAD.INS ABC.INS -o out --data hkl");
  EXPECT_EQ(outcome.exit_code, 1);
  EXPECT_EQ(LineOf(outcome.messages, 1), "NOCELL.INS: no CELL line in it");
  EXPECT_EQ(LineOf(outcome.messages, 2), "LONE.HKL: no INS, RES or CIF with its cell");
  EXPECT_EQ(LineOf(outcome.messages, 3), "BAD.INS: BAD.HKL, line 2: no reflection, the list ends here: \"text\"");
  EXPECT_TRUE(Exists("out/ABC.ING") && Exists("out/BAD.ING") && !Exists("out/NOCELL.ING"));
}

TEST_F(RunCommands, RowsPassedOverAreCountedFromTheFirst) {
  if (!HasScatteringTables()) GTEST_SKIP() << "built without gemmi";
  const std::string head = "# h k l\nloop_\n _refln_index_h\n";
  const std::string row = "   1   0   0      400.00      401.00      1.00 o\n";
  const std::string touching = "   1   1   0-1234567.89-1234567.89      1.00 o\n";
  WriteFile("ABC.FCF", head + row + touching + "\n" + touching + Replaced(row, "   0   0", "   0   1"));
  const Outcome fcf = RunTool("simulate ABC.INS --data fcf");
  EXPECT_EQ(LineOf(fcf.messages, 1),
            "ABC.INS: ABC.FCF, line 5: 2 rows passed over from here on, for they do not hold seven texts with blanks "
            "between");
  EXPECT_EQ(ValueOf(fcf.output, "rows"), "2");
  WriteFile("ABC.FCF", "_shelx_refln_list_code 6\n" + head + row);
  EXPECT_EQ(LineOf(RunTool("simulate ABC.INS --data fcf").messages, 1).substr(0, 33),
            "ABC.INS: ABC.FCF: holds LIST 6, a");
  WriteFile("ABC.HKL", HklRow(1, 0, 0, 1) + HklRow(1, 1, 0, 1) + HklRow(-1, 0, 0, 1) + HklRow(1, 1, 0, 1));
  EXPECT_EQ(RunTool("fcalc ABC.INS -o out").messages,
            "ABC.INS: ABC.HKL, line 3: 2 rows passed over from here on, for they repeat earlier ones\n");
}

}  // namespace
}  // namespace talven::test
