#include "crystal/ModelFromCif.h"

#include <gtest/gtest.h>

#include <tuple>

#include "crystal/ScatteringTables.h"
#include "crystal/StructureFactors.h"
#include "support/TestFiles.h"

namespace talven {
namespace {

CifStructure Read(const std::string& text) { return ModelFromCif(TextInput("a.cif", text)); }

struct ModelFromCifTest : testing::Test {
  void SetUp() override {
    if (!HasScatteringTables()) GTEST_SKIP() << "built without gemmi";
  }
};

const std::string kCell =
    "data_global\n_publ x\ndata_one\n_cell_length_a 9.1(2)\n_cell_length_b 9.1\n_cell_length_c 12.7\n_cell_angle_alpha "
    "90\n"
    "_cell_angle_beta 90\n_cell_angle_gamma 120.0\n_diffrn_radiation_wavelength 0.71073\n";
const std::string kSites =
    "loop_\n_atom_site_label\n_atom_site_type_symbol\n_atom_site_fract_x\n_atom_site_fract_y\n_atom_site_fract_z\n"
    "_atom_site_U_iso_or_equiv\n_atom_site_occupancy\n_atom_site_disorder_group\n"
    "Fe1 Fe3+ 0 0 0.0001 0.0 1 .\nO1 O2- 0.1234(5) 0.0456 0.2 0.02 1 .\nH1 H . ? . 0.02 1 .\n"
    "loop_\n_atom_site_aniso_label\n_atom_site_aniso_U_11\n_atom_site_aniso_U_22\n_atom_site_aniso_U_33\n"
    "_atom_site_aniso_U_23\n_atom_site_aniso_U_13\n_atom_site_aniso_U_12\nFe1 0.012 0.012 0.02 0 0 0.006\n"
    "O1 0.02 0.03 0.025(1) 0.003 -0.002 0.011\n"
    "loop_\n_atom_type_symbol\n_atom_type_scat_dispersion_real\n_atom_type_scat_dispersion_imag\nFe3+ 0.35 0.85\n";

// A model of R -3 by operators, by Hall's symbol and by Hermann and Mauguin's; means over Friedel pairs as cctbx gives
// them.
TEST_F(ModelFromCifTest, GivesTheValuesOfAnotherProgram) {
  for (const char* const symmetry :
       {"_space_group_name_Hall '-R 3'\n", "_symmetry_space_group_name_H-M 'R -3 :H'\n",
        "loop_\n_symmetry_equiv_pos_as_xyz\nx,y,z\n-y,x-y,z\n-x+y,-x,z\n-x,-y,-z\n'y, -x+y, -z'\nx-y,x,-z\n"
        "x+2/3,y+1/3,z+1/3\n-y+2/3,x-y+1/3,z+1/3\n-x+y+2/3,-x+1/3,z+1/3\n-x+2/3,-y+1/3,-z+1/3\n"
        "'y+2/3, -x+y+1/3, -z+1/3'\nx-y+2/3,x+1/3,-z+1/3\nx+1/3,y+2/3,z+2/3\n-y+1/3,x-y+2/3,z+2/3\n"
        "-x+y+1/3,-x+2/3,z+2/3\n-x+1/3,-y+2/3,-z+2/3\n'y+1/3, -x+y+2/3, -z+2/3'\nx-y+1/3,x+2/3,-z+2/3\n"}) {
    const CifStructure structure = Read(kCell + symmetry + kSites);
    ASSERT_EQ(structure.model.atoms.size(), 2U);
    EXPECT_EQ(structure.notices, std::vector<std::string>{"a.cif: 1 atom without a position passed over"});
    EXPECT_EQ(structure.model.title, "one");
    const std::pair<MillerIndex, double> values[] = {
        {{1, 1, 0}, 20659.906895}, {{0, 1, 2}, 341.822735}, {{-1, 2, 3}, 102.605040}, {{2, 1, 1}, 5052.193043}};
    for (const auto& [index, value] : values)
      EXPECT_NEAR(CalculateSquaredFactors(structure.model, std::span(&index, 1))[0], value, 1e-5 * value) << symmetry;
  }
}

TEST_F(ModelFromCifTest, SharesSitesAndTakesWhatIsTold) {
  const std::string head = kCell +
                           "_space_group_name_Hall '-P 2y'\nloop_\n_atom_site_label\n_atom_site_fract_x\n"
                           "_atom_site_fract_y\n_atom_site_fract_z\n_atom_site_B_iso_or_equiv\n_atom_site_occupancy\n";
  const CrystalModel model =
      Read(test::Replaced(head, "120.0", "90") +
           "_atom_site_site_symmetry_order\nC1A 0 0 0 3.0 0.5 4\nCl2 0.01 .3 0 . 1 1\nNA1 .5 .3 0 1 1 ?\n")
          .model;
  ASSERT_EQ(model.atoms.size(), 3U);
  EXPECT_DOUBLE_EQ(model.atoms[0].occupancy, 0.125);
  EXPECT_NEAR(model.atoms[0].u_isotropic, 3.0 / 78.9568352, 1e-9);
  EXPECT_DOUBLE_EQ(model.atoms[1].occupancy, 1.0);
  EXPECT_DOUBLE_EQ(model.atoms[1].position[0], 0.01);
  EXPECT_DOUBLE_EQ(model.atoms[2].occupancy, 0.5);
  EXPECT_EQ(model.scatterers[1].atomic_number, 17);
  EXPECT_EQ(model.scatterers[2].atomic_number, 11);
  EXPECT_EQ(Read(kCell).notices.at(0), "a.cif: no symmetry is told: P 1 is taken");
}

// Numbers of operators as in International Tables A; the third is what is noticed.
TEST_F(ModelFromCifTest, KnowsSpaceGroupsAsTheyAreSpelled) {
  const std::string hexagonal = kCell;
  const std::string rhombohedral =
      "data_r\n_cell_length_a 6\n_cell_length_b 6\n_cell_length_c 6\n_cell_angle_alpha 55\n_cell_angle_beta 55\n"
      "_cell_angle_gamma 55\n";
  const std::string cubic = "data_c\n_cell_length_a 8\n_cell_length_b 8\n_cell_length_c 8\n";
  const std::string open = "a.cif: the setting of the space group is not told: ";
  struct Case {
    std::string text;
    std::size_t operators;
    std::string notice;
  };
  const Case cases[] = {
      {cubic + "_symmetry_space_group_name_H-M 'P2(1)/n'\n", 4, ""},
      {cubic + "_symmetry_equiv_pos_as_xyz ?\n_symmetry_space_group_name_H-M 'P 2_1/n (no. 14)'\n", 4, ""},
      {cubic + "_space_group.name_H-M_alt P2~1~/c\n", 4, ""},
      {hexagonal + "_symmetry_space_group_name_H-M 'R -3 m H'\n", 36, ""},
      {hexagonal + "_symmetry_space_group_name_H-M R-3m\n", 36, ""},
      {rhombohedral + "_symmetry_space_group_name_H-M 'R -3 m'\n", 12, ""},
      {rhombohedral + "_symmetry_space_group_name_H-M 'R -3 m R'\n", 12, ""},
      {rhombohedral + "_space_group_IT_number 166\n", 12, open + "R -3 m:R is taken"},
      {cubic + "_space_group_IT_number 19\n", 4, ""},
      {cubic + "_symmetry_space_group_name_H-M 'F d -3 m Z'\n", 192, ""},
      {cubic + "_symmetry_space_group_name_H-M 'F d 3 m'\n", 192, open + "F d -3 m:1 is taken"},
      {cubic + "_symmetry_space_group_name_H-M Pa3\n", 24, ""},
      {cubic + "_symmetry_Int_Tables_number 14\n", 4, open + "P 1 21/c 1 is taken"},
      {cubic + "_symmetry_space_group_name_H-M 'P 77'\n", 1,
       "a.cif: the space group \"P 77\" is not known: P 1 is taken"},
  };
  for (const Case& each : cases) {
    const CifStructure structure = Read(each.text);
    EXPECT_EQ(structure.model.symmetry.Operators().size(), each.operators) << each.text;
    EXPECT_EQ(structure.notices, each.notice.empty() ? std::vector<std::string>() : std::vector{each.notice});
  }
}

// Labels of files without type symbols.
TEST_F(ModelFromCifTest, TellsElementsByLabelAndFormula) {
  const std::string head =
      "_space_group_name_Hall 'P 1'\nloop_\n_atom_site_label\n_atom_site_fract_x\n_atom_site_fract_y\n"
      "_atom_site_fract_z\n_atom_site_U_iso_or_equiv\n";
  const std::string formula = "_chemical_formula_sum 'C6 H12 O6 Ca0.5'\n";
  const std::tuple<std::string, std::string, int> cases[] = {
      {formula, "HO1", 1}, {"", "Ho1", 67}, {formula, "CF1", 6},  {formula, "CA1", 20},
      {"", "NO2", 7},      {"", "Wat", 8},  {formula, "Na1", 11}, {"", "OG", 8},
  };
  for (const auto& [told, label, number] : cases) {
    const CrystalModel model =
        Read(test::Replaced(kCell + told + head, "120.0", "90") + label + " .1 .2 .3 .1\n").model;
    EXPECT_EQ(model.scatterers.at(0).atomic_number, number) << label;
  }
}

// In P 21/c: some programs tell the order of a site under the name of its number of copies.
TEST_F(ModelFromCifTest, TakesTheNumberOfCopiesOrTheOrderOfASite) {
  const std::string head = kCell +
                           "_space_group_name_Hall '-P 2ybc'\nloop_\n_atom_site_label\n_atom_site_fract_x\n"
                           "_atom_site_fract_y\n_atom_site_fract_z\n_atom_site_site_symmetry_multiplicity\n"
                           "_atom_site_U_iso_or_equiv\n";
  for (const char* const atoms : {"Fe1 0 0 0 2 .1\nO1 .1 .2 .3 4 .1\n", "Fe1 0 0 0 2 .1\nO1 .1 .2 .3 1 .1\n",
                                  "Fe1 0.01 0 0 2 .1\nO1 .1 .2 .3 4 .1\n"}) {
    const CrystalModel model = Read(head + atoms).model;
    EXPECT_DOUBLE_EQ(model.atoms.at(0).occupancy, 0.5) << atoms;
    EXPECT_DOUBLE_EQ(model.atoms.at(1).occupancy, 1.0) << atoms;
  }
}

TEST_F(ModelFromCifTest, TakesFilesOfManyKinds) {
  const std::string text =
      "\xEF\xBB\xBF" + kCell + "_space_group_name_Hall '-P 2ybc'\n_exptl_crystal_colour gr\xFCn\nloop_\n" +
      "_atom_site.type_symbol\n_atom_site.fract_x\n_atom_site.fract_y\n_atom_site.fract_z\n_atom_site.calc_flag\n"
      "D .1 .2 .3 d\n. .5 .5 .1 dum\ndata_other\n" +
      kCell.substr(kCell.find("_cell")) + kSites + "\x1A";
  const CifStructure structure = Read(text);
  ASSERT_EQ(structure.model.atoms.size(), 1U);
  EXPECT_EQ(structure.model.scatterers[0].atomic_number, 1);
  EXPECT_EQ(structure.notices, (std::vector<std::string>{"a.cif: 2 structures in it: the first is taken, data_one",
                                                         "a.cif: 1 atom without a displacement: U of 0.05 is taken"}));
  EXPECT_TRUE(MentionsTag(text, "_atom_site_fract_x"));
  EXPECT_TRUE(MentionsTag("_CELL_LENGTH_A 3", "_cell_length_a"));
  EXPECT_FALSE(MentionsTag(text, "_pd_meas_counts_total"));
}

TEST_F(ModelFromCifTest, HandsOutReflections) {
  EXPECT_EQ(
      Read(kCell + "_shelx_hkl_file\n;\n   1   0   0   12.00    1.00\n   0   0   0    0.00    0.00\n;\n").reflections,
      "   1   0   0   12.00    1.00\n   0   0   0    0.00    0.00");
  EXPECT_EQ(Read(kCell + "loop_\n_refln_index_h\n_refln_index_k\n_refln_index_l\n_refln_F_squared_meas\n"
                         "_refln_F_squared_sigma\n1 0 -2 123456.7 12.5\n0 1 0 ? ?\n2 0 0 9 1.25\n")
                .reflections,
            "   1   0  -2 1234.57    0.13\n   2   0   0    0.09    0.01\n");
}

TEST_F(ModelFromCifTest, RefusesWhatIsNoStructure) {
  const std::pair<std::string, std::string> cases[] = {
      {"", "a.cif: expected a data block with a cell, found none"},
      {"data_x\n_cell_length_a 0\n_cell_length_b 1\n_cell_length_c 1\n",
       "a.cif: expected a data block with a cell, found none"},
      {kCell + test::Replaced(kSites, "O2-", "Xx"), "a.cif: expected the symbol of an element, found \"Xx\""},
      {kCell + "_symmetry_equiv_pos_as_xyz x,y\n",
       "a.cif: expected a symmetry operator as -x, 1/2+y, -z, found \"x,y\""},
  };
  for (const auto& [text, error] : cases)
    EXPECT_EQ(test::ErrorOf([&, &text = text] { Read(text); }), error);  // Clang 14 wants it named.
  for (const char* const text : {"CELL 1 1 1 1 90 90 90\n", "data_x\nloop_\n_a\n_b\n1\n",
                                 "\x7f"
                                 "ELF\1"})
    EXPECT_TRUE(test::ErrorOf([&] { Read(text); }).starts_with("a.cif: expected a CIF, found something else: "));
}

}  // namespace
}  // namespace talven
