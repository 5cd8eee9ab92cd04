#include "shelx/ReadModel.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "crystal/ScatteringTables.h"
#include "crystal/StructureFactors.h"
#include "shelx/CodedNumber.h"
#include "support/TestFiles.h"

namespace talven {
namespace {

ModelReading Read(const std::string& text) {
  TextInput ins("A.INS", text);
  return ReadModel(ins);
}

struct ReadModelTest : testing::Test {
  void SetUp() override {
    if (!HasScatteringTables()) GTEST_SKIP() << "built without tables";
  }
};

const std::string kHead = "TITL t\nCELL 0.71073 5 6 7 90 90 90\nLATT -1\nSFAC C H O\nUNIT 1 0 0\nFVAR 1.5 0.4 0.7\n";

// By the manual: 10 m + p, free variables 1.5, 0.4 and 0.7.
TEST(CodedNumber, IsWorkedOut) {
  const double free_variables[] = {1.5, 0.4, 0.7};
  const std::pair<double, double> cases[] = {{0.123, 0.123}, {-0.3, -0.3},   {10.25, 0.25}, {9.75, -0.25}, {11, 1},
                                             {4.9, 4.9},     {-4.9, -4.9},   {-10.3, -0.3}, {-11, -1},     {21, 0.4},
                                             {20.5, 0.2},    {-20.5, 0.3},   {-21, 0.6},    {31, 0.7},     {-31, 0.3},
                                             {19.5, -0.2},   {-30.25, 0.075}};
  for (const auto& [coded, value] : cases)
    EXPECT_NEAR(DecodeNumber(coded, free_variables).value(), value, 1e-12) << coded;
  for (const double coded : {41.0, -41.0, 1e30}) EXPECT_FALSE(DecodeNumber(coded, free_variables)) << coded;
}

/// The atoms as `label x y z occupancy U`, in thousandths of the first five and ten-thousandths of U.
std::string Atoms(const CrystalModel& model) {
  std::ostringstream text;
  for (const Atom& atom : model.atoms) {
    text << atom.label;
    for (const double each : atom.position) text << ' ' << std::lround(1000 * each);
    text << ' ' << std::lround(1000 * atom.occupancy) << ' ' << std::lround(10000 * atom.u_isotropic)
         << (atom.is_anisotropic ? "a; " : "; ");
  }
  return text.str();
}

TEST_F(ReadModelTest, WorksOutAtoms) {
  const std::pair<const char*, const char*> cases[] = {
      {"C1 1 0.1 0.2 0.3", "C1 100 200 300 1000 500; "},
      {"c1\t1\t0.1\t0.2\t0.3 11 0.04\r", "C1 100 200 300 1000 400; "},
      {"C1 1 10.1 0.2 30.5 21.0 31.1", "C1 100 200 350 400 7700; "},
      {"C1 1 .1 .2 .3 =\n 10.5 0.01 0.02 =\n 0.03 0 0 0", "C1 100 200 300 500 200a; "},
      {"++My 1 1 1 1.dfx\nC1 1 .1 .2 .3 =\n10.5 0.02 ! 0.03", "C1 100 200 300 500 200; "},
      // Riding: twice, on the last that does not ride, hydrogen included; never on a peak.
      {"C1 1 0 0 0 11 .03\nH1 2 0 0 .1 11 -1.2\nH2 2 0 0 .2 11 -1.5\nO1 3 0 .2 .3 11 .02\nQ1 1 0 0 0 11 .09\nH3 2 0 .3 "
       ".3 11 -0.5\nH4 2 0 .4 .3 11 .06\nH5 2 0 .5 .3 11 -5",
       "C1 0 0 0 1000 300; H1 0 0 100 1000 360; H2 0 0 200 1000 450; O1 0 200 300 1000 200; H3 0 300 300 1000 100; H4 "
       "0 "
       "400 300 1000 600; H5 0 500 300 1000 3000; "},
      {"PART 1 -31\nC1 1 .1 .2 .3 21\nPART 2\nC2 1 .1 .2 .3 21\nPART 0\nC3 1 .4 .4 .4",
       "C1 100 200 300 300 500; C2 100 200 300 400 500; C3 400 400 400 1000 500; "},
      {"AFIX 66 1.39 10.5 10.08\nC1 1 .1 .2 .3 11 .02 .02 .02 0 0 0\nAFIX 43\nC2 1 .1 .3 .3 11 .03",
       "C1 100 200 300 500 800; C2 100 300 300 1000 300; "},
      {"MOVE 1 1 1 -1\nC1 1 .1 .2 .3\nMOVE 0 .5\nC2 1 .1 .2 .3\nMOVE\nC3 1 .1 .2 .3",
       "C1 900 800 700 1000 500; C2 100 700 300 1000 500; C3 100 200 300 1000 500; "},
      {"FRAG 17 1 1 1 90 90 90\nC9 1 0 0 0\nFEND\nSADI_CCF3 0.02 C1 C2\nC1 1 .1 .2 .3\nRESI 4 CCF3\n  O9 3 0 0 0\nREM "
       "O8 3 0 0 0 =\nSIMU_* 0.1\nREM###\nend\nC2 1 .1 .2 .3",
       "C1 100 200 300 1000 500; "},
      {"C1 1 .1 .2 .3\nHKLF 4\nC2 1 .1 .2 .3", "C1 100 200 300 1000 500; "},
  };
  for (const auto& [rows, atoms] : cases) EXPECT_EQ(Atoms(Read(kHead + rows + "\n").model), atoms) << rows;
}

// Within 0.2 Angstrom of a centre or axis of P 2/m; with SPEC the distance is another one.
TEST_F(ReadModelTest, PutsAtomsOnSpecialPositions) {
  const std::string head =
      test::Replaced(test::Replaced(kHead, "LATT -1", "LATT 1\nSYMM -X,Y,-Z"), "UNIT 1 0 0", "UNIT 1");
  const std::pair<const char*, const char*> cases[] = {
      {"C1 1 .01 .01 .01", "C1 0 0 0 250 500; "},
      {"C1 1 .5 .21 .01 1.0", "C1 500 210 0 500 500; "},
      {"C1 1 .3 .49 .2 11.0", "C1 300 500 200 500 500; "},
      {"C1 1 .01 .01 .01 10.25", "C1 10 10 10 250 500; "},
      {"C1 1 .01 .01 .01 21", "C1 10 10 10 400 500; "},
      {"PART -1\nC1 1 .01 .01 .01 11", "C1 10 10 10 1000 500; "},
      {"PART 1\nC1 1 .01 .01 .01 11", "C1 0 0 0 250 500; "},
      {"SPEC 0.05\nC1 1 .3 .49 .2", "C1 300 490 200 1000 500; "},
      {"SPEC -1\nC1 1 0 0 0\nSPEC\nC2 1 0 0 0", "C1 0 0 0 1000 500; C2 0 0 0 250 500; "},
  };
  for (const auto& [rows, atoms] : cases) EXPECT_EQ(Atoms(Read(head + rows + "\n").model), atoms) << rows;
}

TEST_F(ReadModelTest, TakesScatterersAndSymmetry) {
  const CrystalModel model = Read(
                                 "CELL 1.54178 5 5 5 90 90 90\nLATT 2\nSYMM -x,-y,-z\nSYMM 1/2+x,1/2+Y,0.5+z\nSYMM "
                                 "-X,Y,0.5-Z\nDISP H 1 2\nDISP $O 0.1 0.2 "
                                 "30\nSFAC C $H\nSFAC FE3 1 2 3 4 5 6 7 8 9 =\n 0.5 0.25 10 0.7 12 O D\n")
                                 .model;
  ASSERT_EQ(model.scatterers.size(), 5U);
  EXPECT_EQ(model.symmetry.Operators().size(), 8U) << "what differs by centring and inversion counts once";
  EXPECT_TRUE(model.symmetry.IsGroup());
  EXPECT_EQ(model.scatterers[2].form.a[1], 3.0);
  EXPECT_EQ(model.scatterers[2].form.c, 9.0);
  EXPECT_EQ(model.scatterers[2].f_double_prime, 0.25);
  EXPECT_EQ(model.scatterers[3].f_prime, 0.1);
  EXPECT_EQ(model.scatterers[1].f_double_prime, 2.0);
  EXPECT_EQ(model.scatterers[4].form.At(0), model.scatterers[1].form.At(0));
  EXPECT_GT(model.scatterers[0].f_double_prime, 0.0);
  EXPECT_EQ(Read("CELL 1 5 5 5 90 90 90\n").model.symmetry.Operators().size(), 2U) << "no LATT means 1";
}

struct BadModel {
  std::string text, error;
};

TEST_F(ReadModelTest, RefusesWhatIsNoModel) {
  const BadModel cases[] = {
      {"", "A.INS, line 0: expected a CELL line, found none up to here"},
      {"TITL a\n CELL 1 1 1 1 90 90 90\n", "A.INS, line 2: expected a CELL line, found none up to here"},
      {"CELL 0.7 5 6 7 90 90\n", "A.INS, line 1: expected 7 numbers after CELL, found 6"},
      {"CELL 0.7 5 6 x 90 90 90\n", "A.INS, line 1: expected numbers after CELL, found \"x\""},
      {"CELL 0 5 6 7 90 90 90\n", "A.INS, line 1: expected a wavelength above 0, found \"0\""},
      {"\nCELL 1 5 6 7 90 0 90\n", "A.INS, line 2: expected a cell that has a volume, found \"1 5 6 7 90 0 90\""},
      {"CELL 1 5 6 7 90 180 90\n", "A.INS, line 1: expected a cell that has a volume, found \"1 5 6 7 90 180 90\""},
      {kHead + "LATT 8\n",
       "A.INS, line 7: expected a lattice type from 1 to 7, negative without a centre, found \"8\""},
      {kHead + "SYMM X,Y\n", "A.INS, line 7: expected a symmetry operator as -X, 0.5+Y, 1/2-Z, found \"X,Y\""},
      {kHead + "SYMM -X,Y,0.1\n",
       "A.INS, line 7: expected a symmetry operator as -X, 0.5+Y, 1/2-Z, found \"-X,Y,0.1\""},
      {kHead + "SFAC N XX\n", "A.INS, line 7: expected the symbol of an element, found \"XX\""},
      {kHead + "SFAC N 1 2 3\n", "A.INS, line 7: expected 14 numbers after N, found 3"},
      {kHead + "DISP C 1\n", "A.INS, line 7: expected an element, f' and f'' after DISP, found \"C 1\""},
      {kHead + "C1 1 0.1 abc 0.3 11\n", "A.INS, line 7: expected a number, found \"abc\""},
      {kHead + "C1 C 0.1 0.2 0.3 11\n", "A.INS, line 7: expected a number, found \"C\""},
      {kHead + "C1 1 0.1 0.2\n",
       "A.INS, line 7: expected the number of an element and x, y, z after C1, found 3 numbers"},
      {kHead + "C1 4 .1 .2 .3\n", "A.INS, line 7: expected the number of an element of SFAC from 1 to 3, found \"4\""},
      {kHead + "C1 1 .1 .2 .3 41\n", "A.INS, line 7: expected a free variable from 2 to 3, found number 4"},
      {kHead + "C1 1 .1 .2 .3 11 .1 .1 .1\n", "A.INS, line 7: expected 1 or 6 displacement values, found 3"},
      {kHead + "C1 1 .1 .2 .3 11 .1 =\n",
       "A.INS, line 7: expected a line that goes on with this one, found end of file"},
      {"CELL 1 5 6 7 90 90 90\nSFAC C\nC1 1 .1 .2 .3 21\n",
       "A.INS, line 3: expected an FVAR instruction with the free variable that is used, found number 2"},
      {"CELL 1 5 6 7 90 90 90\nC1 1 .1 .2 .3\n",
       "A.INS, line 2: expected an SFAC instruction before the atoms, found none"},
      {kHead + std::string("C1 1 0\0.1 .2 .3\n", 16), "A.INS, line 7: expected text, found a character of value 0"},
      {std::string("\x7f"
                   "ELF\2\1\1\0\0",
                   9),
       "A.INS, line 1: expected text, found a character of value 0"},
      {"\xff\xfe\x80\n\x01\x02\n", "A.INS, line 2: expected a CELL line, found none up to here"},
  };
  for (const BadModel& c : cases) EXPECT_EQ(test::ErrorOf([&] { Read(c.text); }), c.error);
  std::string operators = kHead;
  for (int i = 0; i < 193; ++i) operators += "SYMM X,Y,Z\n";
  EXPECT_EQ(test::ErrorOf([&] { Read(operators); }), "A.INS, line 199: expected at most 192 SYMM lines, found more");
  std::string many = kHead;
  for (int i = 0; i < 100'000; ++i) many += "C1 1 .1 .2 .3\n";
  EXPECT_EQ(test::ErrorOf([&] { Read(many); }), "A.INS, line 50007: expected at most 50000 atoms, found more");
}

TEST_F(ReadModelTest, NoticesWhatIsDoubtful) {
  const std::string atom = "C1 1 .1 .2 .3\n";
  const BadModel cases[] = {
      {kHead + atom, ""},
      {test::Replaced(kHead, "UNIT 1 0 0", "UNIT 2 0 0") + atom,
       "line 5: UNIT is not what the atoms give for a cell: C 1 H 0 O 0"},
      {test::Replaced(kHead, "SFAC", "SYMM -Y,X-Y,Z\nSFAC") + atom,
       "line 4: the operators of LATT and SYMM do not form a group|line 2: the cell does not "
       "have the symmetry of its operators"},
      {test::Replaced(kHead, "UNIT 1 0 0", "UNIT 2 0 0") + atom + "C2 1 .11 .2 1.3\n",
       "line 2: 2 atoms lie on top of others, the first is C1 on C2"},
      {kHead + "C1 1 .1 .2 .3 10.5\nC2 1 .1 .2 .3 10.5\n", ""},
      {kHead + "SWAT\nNEUT\n+My_peptide.txt ! x\nABIN\n" + atom,
       "line 7: SWAT is passed over: the calculated values are those of the atoms alone|line 8: NEUT is passed over: "
       "the "
       "scattering factors are those for X-rays|line 9: the file \"My_peptide.txt\" is not read|line 10: ABIN is "
       "passed over: "
       "the "
       "calculated values are those of the atoms alone"},
      {kHead + "DISP N 0 0\nCELL 1 1 1 1 90 90 90\n" + atom,
       "line 8: a second CELL is passed over|line 7: DISP names N, SFAC does not"},
      {kHead + "SADI 1 C1 =\nC1 1 .1 .2 .3\n", "line 7: \"=\" says that the line goes on, and it does not"},
      {kHead + "C1 1 .1 .2 .3 11 -1.2\n", "line 7: C1 takes its U from the atom before it, and there is none"},
  };
  for (const BadModel& c : cases) {
    std::string notices;
    for (const std::string& each : Read(c.text).notices)
      notices.append(notices.empty() ? "" : "|").append(test::Replaced(each, "A.INS, ", ""));
    EXPECT_EQ(notices, c.error) << c.text;
  }
}

struct Judged {
  std::string model;
  std::vector<std::pair<MillerIndex, double>> values;
};

// Means over Friedel pairs as cctbx gives them (direct summation, IT 1992, the same f' and f'').
TEST_F(ReadModelTest, GivesTheValuesOfAnotherProgram) {
  const Judged cases[] = {
      {"CELL 1.54178 5.2 7.1 8.3 90 105.4 90\nLATT -1\nSYMM -X, 0.5+Y, -Z\nSFAC C H CU S\nFVAR 1.0 0.4\n"
       "CU1 3 0.1234 0.2 0.3456 11.0 0.021 0.033 0.017 0.002 -0.004 0.003\nS1 4 0.6 0.41 0.77 11.0 0.04\n"
       "C1 1 0.31 0.62 0.08 21.0 0.035\nC2 1 0.35 0.66 0.11 -21.0 0.045\nH1 2 0.8 0.1 0.4 11.0 -1.2\n",
       {{{1, 0, 0}, 65.807578},
        {{0, 2, 0}, 926.568324},
        {{1, 1, 1}, 429.668652},
        {{-3, 2, 4}, 522.497304},
        {{4, -1, 2}, 322.662889},
        {{0, 1, 0}, 0.0}}},
      {"CELL 0.71073 9.1 9.1 12.7 90 90 120\nLATT 3\nSYMM -Y, X-Y, Z\nSYMM -X+Y, -X, Z\nSFAC O FE\nDISP FE 0.35 0.85\n"
       "FE1 2 0 0 0.01 1.0 0.012 0.012 0.02 0 0 0.006\n"
       "O1 1 0.1234 0.0456 0.2 11.0 0.02 0.03 0.025 0.003 -0.002 0.011\n",
       {{{1, 1, 0}, 20659.906895},
        {{0, 1, 2}, 341.822735},
        {{-1, 2, 3}, 102.605040},
        {{2, 1, 1}, 5052.193043},
        {{1, 0, 0}, 0.0}}},
  };
  for (const Judged& c : cases) {
    const CrystalModel model = Read(c.model).model;
    for (const auto& [index, value] : c.values)
      EXPECT_NEAR(CalculateSquaredFactors(model, std::span(&index, 1))[0], value, 1e-5 * value)
          << index.h << ' ' << index.k << ' ' << index.l;
  }
}

}  // namespace
}  // namespace talven
