#include "crystal/ModelFromCif.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <exception>
#include <map>
#include <optional>
#include <string_view>
#include <utility>

#include "crystal/CifText.h"
#include "crystal/ScatteringTables.h"
#include "crystal/SpaceGroupSymbols.h"
#include "textio/FatalIoError.h"
#include "textio/FieldInput.h"
#include "textio/LetterCase.h"
#include "textio/Record.h"

namespace talven {
namespace {

constexpr double kUsualDisplacement = 0.05;
constexpr double kSquarePi8 = 78.956835208714864;
/// Angstrom. Coordinates on special positions are rounded, no more.
constexpr double kSpecialDistance = 0.05;
/// Angstrom. As far as this a file may tell that an atom is meant to lie on a special position.
constexpr double kToldSpecialDistance = 0.5;

/// A number, its standard uncertainty in brackets passed over: `1.234(5)`.
std::optional<double> NumberOf(std::string_view text) {
  const auto value = ReadReal<double>(text.substr(0, text.find('(')));
  return value && std::isfinite(*value) ? value : std::nullopt;
}

/// The value of a tag in a row of its loop, or nothing.
std::string TextIn(const CifBlock& block, const std::string& tag, std::size_t row) {
  const auto& column = block.Column(tag);
  return row < column.size() ? column[row] : std::string();
}

std::optional<double> NumberIn(const CifBlock& block, const std::string& tag, std::size_t row) {
  return NumberOf(TextIn(block, tag, row));
}

std::optional<Lattice> LatticeOf(const CifBlock& block) {
  const auto a = NumberOf(block.First("_cell_length_a"));
  const auto b = NumberOf(block.First("_cell_length_b"));
  const auto c = NumberOf(block.First("_cell_length_c"));
  if (!a || !b || !c) return std::nullopt;
  const auto angle = [&block](const char* tag) { return NumberOf(block.First(tag)).value_or(90.0); };
  const Lattice lattice{*a, *b, *c, angle("_cell_angle_alpha"), angle("_cell_angle_beta"), angle("_cell_angle_gamma")};
  return lattice.IsValid() ? std::optional(lattice) : std::nullopt;
}

/// The block of the structure: the first with a cell and atoms, else with a cell.
const CifBlock* FindBlock(const std::vector<CifBlock>& blocks, const std::string& name,
                          std::vector<std::string>& notices) {
  const CifBlock* cell_only = nullptr;
  const CifBlock* found = nullptr;
  std::size_t count = 0;
  for (const CifBlock& block : blocks) {
    if (!LatticeOf(block)) continue;
    if (cell_only == nullptr) cell_only = &block;
    if (block.Column("_atom_site_fract_x").empty()) continue;
    if (count++ == 0) found = &block;
  }
  if (count > 1)
    notices.push_back(name + ": " + std::to_string(count) + " structures in it: the first is taken, data_" +
                      found->name);
  return found == nullptr ? cell_only : found;
}

/// The first of several tags that says something.
std::string TextOf(const CifBlock& block, std::initializer_list<const char*> tags) {
  for (const char* const tag : tags)
    if (std::string value = block.First(tag); !value.empty()) return value;
  return {};
}

std::vector<SymmetryOperator> ListedOperators(const CifBlock& block, const std::string& name) {
  std::vector<SymmetryOperator> operators;
  for (const char* const tag : {"_space_group_symop_operation_xyz", "_symmetry_equiv_pos_as_xyz"}) {
    for (const std::string& text : block.Column(tag)) {
      if (text.empty()) continue;
      const auto each = ParseOperator(text);
      if (!each) throw FatalIoError(name + ": expected a symmetry operator as -x, 1/2+y, -z, found " + Quote(text));
      operators.push_back(*each);
    }
    if (!operators.empty()) break;
  }
  if (operators.size() > 192) throw FatalIoError(name + ": expected at most 192 symmetry operators, found more");
  return operators;
}

std::vector<SymmetryOperator> OperatorsByNames(const CifBlock& block, const Lattice& lattice, const std::string& name,
                                               std::vector<std::string>& notices) {
  const std::string number = TextOf(block, {"_space_group_it_number", "_symmetry_int_tables_number"});
  const SpaceGroupNames names{
      .hall = TextOf(block, {"_space_group_name_hall", "_symmetry_space_group_name_hall"}),
      .hermann_mauguin = TextOf(block, {"_space_group_name_h-m_alt", "_symmetry_space_group_name_h-m"}),
      .number = static_cast<int>(std::clamp(NumberOf(number).value_or(0.0), 0.0, 1000.0))};
  SpaceGroupSetting setting = OperatorsBySymbol(names, lattice);
  if (!setting.assumed.empty())
    notices.push_back(name + ": the setting of the space group is not told: " + setting.assumed + " is taken");
  if (setting.operators.empty()) {
    const std::string& symbol = !names.hermann_mauguin.empty() ? names.hermann_mauguin
                                : !names.hall.empty()          ? names.hall
                                                               : number;
    notices.push_back(symbol.empty() ? name + ": no symmetry is told: P 1 is taken"
                                     : name + ": the space group " + Quote(symbol) + " is not known: P 1 is taken");
  }
  return std::move(setting.operators);
}

SymmetryGroup SymmetryOf(const CifBlock& block, const Lattice& lattice, const std::string& name,
                         std::vector<std::string>& notices) {
  std::vector<SymmetryOperator> operators = ListedOperators(block, name);
  if (operators.empty()) operators = OperatorsByNames(block, lattice, name, notices);
  SymmetryGroup group(operators);
  if (!group.IsGroup()) notices.push_back(name + ": the symmetry operators do not form a group");
  return group;
}

/// True if a formula as `C6 H12 O6` has an element in it.
bool IsInFormula(std::string_view formula, std::string_view element) {
  while (!formula.empty()) {
    std::size_t letters = 0;
    while (letters < formula.size() && std::isalpha(static_cast<unsigned char>(formula[letters])) != 0) ++letters;
    if (EqualIgnoringCase(formula.substr(0, letters), element)) return true;
    formula.remove_prefix(std::max<std::size_t>(letters, 1));
  }
  return false;
}

/// The element of a type symbol or label as `Fe3+` or `C12A`: its first two letters, else its first, which is also
/// meant where the formula has only that one: `HO1` is no holmium in sugar. `Wat` is water, of which oxygen is taken.
std::string ElementOf(std::string_view symbol, std::string_view formula) {
  if (StartsIgnoringCase(symbol, "wat")) return "O";
  std::size_t letters = 0;
  while (letters < symbol.size() && letters < 2 && std::isalpha(static_cast<unsigned char>(symbol[letters])) != 0)
    ++letters;
  const std::string_view two = symbol.substr(0, letters);
  const std::string_view one = symbol.substr(0, std::min<std::size_t>(letters, 1));
  const bool is_one_meant = IsInFormula(formula, one) && !IsInFormula(formula, two);
  for (const std::string_view element : {is_one_meant ? one : two, one})
    if (FindScatterer(element)) return std::string(element);
  return {};
}

/// f' and f'' that are told for a type.
void ApplyDispersion(const CifBlock& block, const std::string& type, Scatterer& scatterer) {
  const auto& symbols = block.Column("_atom_type_symbol");
  for (std::size_t i = 0; i < symbols.size(); ++i) {
    const auto f_prime = NumberIn(block, "_atom_type_scat_dispersion_real", i);
    const auto f_double_prime = NumberIn(block, "_atom_type_scat_dispersion_imag", i);
    if (symbols[i] != type || !f_prime || !f_double_prime) continue;
    scatterer.f_prime = *f_prime;
    scatterer.f_double_prime = *f_double_prime;
    scatterer.has_own_dispersion = true;
  }
}

using Tensors = std::map<std::string, std::array<double, 6>>;

/// U11 U22 U33 U23 U13 U12 by label; B are turned into U.
Tensors TensorsOf(const CifBlock& block) {
  constexpr std::array<const char*, 6> kIndices = {"_11", "_22", "_33", "_23", "_13", "_12"};
  Tensors tensors;
  const auto& labels = block.Column("_atom_site_aniso_label");
  for (std::size_t row = 0; row < labels.size(); ++row)
    for (const std::string kind : {"u", "b"}) {
      std::array<double, 6> tensor = {};
      bool is_whole = true;
      for (std::size_t i = 0; i < tensor.size(); ++i) {
        const auto value = NumberIn(block, "_atom_site_aniso_" + kind + kIndices[i], row);
        is_whole = is_whole && value;
        tensor[i] = value.value_or(0.0) / (kind == "b" ? kSquarePi8 : 1.0);
      }
      if (is_whole) tensors.emplace(labels[row], tensor);
    }
  return tensors;
}

/// Takes the rows of the loop of atoms one after another.
class AtomLoop {
 public:
  AtomLoop(const CifBlock& block, const std::string& name, CrystalModel& model)
      : block_(block), name_(name), tensors_(TensorsOf(block)), model_(model) {}

  /// False for a row without a position.
  bool Read(std::size_t row) {
    constexpr std::array<const char*, 3> kPosition = {"fract_x", "fract_y", "fract_z"};
    Atom atom{.label = Text("label", row)};
    for (std::size_t i = 0; i < atom.position.size(); ++i) {
      const auto value = Number(kPosition[i], row);
      if (!value || std::fabs(*value) > 1000.0) return false;
      atom.position[i] = *value;
    }
    const std::string type = Text("type_symbol", row);
    atom.scatterer =
        type.empty() ? ScattererOf(atom.label, block_.First("_chemical_formula_sum")) : ScattererOf(type, {});
    atom.part = static_cast<int>(std::clamp(Number("disorder_group", row).value_or(0.0), -1e6, 1e6));
    SetDisplacement(row, atom);
    SetOccupancy(row, atom);
    model_.atoms.push_back(std::move(atom));
    return true;
  }
  /// The number of atoms so far whose displacement is not told.
  std::size_t WithoutDisplacement() const { return without_displacement_; }

 private:
  std::string Text(const char* tag, std::size_t row) const {
    return TextIn(block_, std::string("_atom_site_").append(tag), row);
  }
  std::optional<double> Number(const char* tag, std::size_t row) const { return NumberOf(Text(tag, row)); }

  std::size_t ScattererOf(const std::string& type, const std::string& formula) {
    const auto [known, is_new] = scatterers_.emplace(type, model_.scatterers.size());
    if (!is_new) return known->second;
    auto scatterer = FindScatterer(ElementOf(type, formula));
    if (!scatterer) throw FatalIoError(name_ + ": expected the symbol of an element, found " + Quote(type));
    ApplyDispersion(block_, type, *scatterer);
    model_.scatterers.push_back(*std::move(scatterer));
    return known->second;
  }

  void SetDisplacement(std::size_t row, Atom& atom) {
    const auto u = Number("u_iso_or_equiv", row);
    const auto b = Number("b_iso_or_equiv", row);
    atom.u_isotropic = u ? *u : b ? *b / kSquarePi8 : kUsualDisplacement;
    const auto tensor = tensors_.find(atom.label);
    if (tensor == tensors_.end()) {
      without_displacement_ += !u && !b;
      return;
    }
    atom.is_anisotropic = true;
    atom.u = tensor->second;
    atom.u_isotropic = EquivalentIsotropic(atom.u, model_.lattice);
  }

  /// An occupancy in a CIF is that of the site, whatever its symmetry.
  void SetOccupancy(std::size_t row, Atom& atom) const {
    const Site site = FindSite(atom.position, model_.symmetry, model_.lattice, kSpecialDistance);
    double order = site.multiplicity;
    if (const auto told = Number("site_symmetry_order", row); told && *told >= 1.0)
      order = *told;
    else if (const auto by_copies = OrderByCopies(row, atom.position))
      order = *by_copies;
    if (order == site.multiplicity) atom.position = site.position;
    atom.occupancy = Number("occupancy", row).value_or(1.0) / order;
  }

  /// By the told number of copies in the cell. SHELXL-97 and others write the order itself in its place, so that it
  /// counts only where there is such a site.
  std::optional<double> OrderByCopies(std::size_t row, const Vector3& position) const {
    const auto copies = Number("site_symmetry_multiplicity", row);
    if (!copies || *copies < 1.0) return std::nullopt;
    const double order = static_cast<double>(model_.symmetry.Operators().size()) / *copies;
    const Site site = FindSite(position, model_.symmetry, model_.lattice, kToldSpecialDistance);
    return order == site.multiplicity ? std::optional(order) : std::nullopt;
  }

  const CifBlock& block_;
  const std::string& name_;
  Tensors tensors_;
  CrystalModel& model_;
  std::map<std::string, std::size_t> scatterers_;
  std::size_t without_displacement_ = 0;
};

/// A mark of the drawing, as the centre of a ring.
bool IsDummy(const CifBlock& block, std::size_t row) {
  return EqualIgnoringCase(TextIn(block, "_atom_site_calc_flag", row), "dum");
}

void ReadAtoms(const CifBlock& block, const std::string& name, CifStructure& structure) {
  AtomLoop atoms(block, name, structure.model);
  std::size_t passed_over = 0;
  for (std::size_t row = 0; row < block.Column("_atom_site_fract_x").size(); ++row)
    if (!IsDummy(block, row)) passed_over += !atoms.Read(row);
  const auto tell = [&](std::size_t count, const char* text) {
    if (count > 0)
      structure.notices.push_back(name + ": " + std::to_string(count) + (count == 1 ? " atom" : " atoms") + text);
  };
  tell(passed_over, " without a position passed over");
  tell(atoms.WithoutDisplacement(), " without a displacement: U of 0.05 is taken");
}

struct ListRow {
  std::array<double, 3> index = {};
  double value = 0.0;
  double sigma = 0.0;
};

std::optional<ListRow> ListRowOf(const CifBlock& block, std::size_t row) {
  constexpr std::array<const char*, 3> kIndices = {"_refln_index_h", "_refln_index_k", "_refln_index_l"};
  const auto value = NumberIn(block, "_refln_f_squared_meas", row);
  if (!value) return std::nullopt;
  ListRow result{.value = *value, .sigma = NumberIn(block, "_refln_f_squared_sigma", row).value_or(0.0)};
  for (std::size_t i = 0; i < result.index.size(); ++i) {
    const auto index = NumberIn(block, kIndices[i], row);
    if (!index || std::fabs(*index) >= 1000.0) return std::nullopt;
    result.index[i] = *index;
  }
  return result;
}

/// The rows of a `_refln_` loop with measured F squared as an HKL file, divided by a power of ten where they need it.
std::string ListOf(const CifBlock& block) {
  std::vector<ListRow> rows;
  double largest = 0.0;
  for (std::size_t i = 0; i < block.Column("_refln_index_h").size(); ++i)
    if (const auto row = ListRowOf(block, i)) {
      largest = std::max({largest, std::fabs(row->value), std::fabs(row->sigma)});
      rows.push_back(*row);
    }
  double divisor = 1.0;
  while (largest / divisor > 9999.0) divisor *= 10.0;
  std::string text;
  for (const ListRow& row : rows) {
    Record record;
    for (const double index : row.index) record.I(std::lround(std::clamp(index, -1e6, 1e6)), 4);
    text.append(record.F(row.value / divisor, 8, 2).F(row.sigma / divisor, 8, 2).Text()).append("\n");
  }
  return text;
}

std::string ReflectionsOf(const CifBlock& block) {
  std::string text = TextOf(block, {"_shelx_hkl_file", "_iucr_refine_reflections_details"});
  if (text.empty()) return ListOf(block);
  text.erase(0, text.find_first_not_of("\r\n"));
  return text;
}

std::vector<CifBlock> Parse(const TextInput& text) {
  try {
    return ParseCif(text.Content(), text.Name());
  } catch (const std::exception& error) {
    throw FatalIoError(text.Name() + ": expected a CIF, found something else: " + error.what());
  }
}

}  // namespace

bool MentionsTag(std::string_view cif, std::string_view tag) {
  const auto is_same = [](char in_file, char wanted) {
    return LowerCase(in_file) == wanted || (in_file == '.' && wanted == '_');
  };
  return std::search(cif.begin(), cif.end(), tag.begin(), tag.end(), is_same) != cif.end();
}

CifStructure ModelFromCif(const TextInput& cif) {
  const std::vector<CifBlock> blocks = Parse(cif);
  CifStructure result;
  const CifBlock* const block = FindBlock(blocks, cif.Name(), result.notices);
  if (block == nullptr) throw FatalIoError(cif.Name() + ": expected a data block with a cell, found none");
  CrystalModel& model = result.model;
  model.title = block->name;
  model.lattice = *LatticeOf(*block);
  model.symmetry = SymmetryOf(*block, model.lattice, cif.Name(), result.notices);
  ReadAtoms(*block, cif.Name(), result);
  model.wavelength = NumberOf(block->First("_diffrn_radiation_wavelength")).value_or(0.0);
  if (model.wavelength > 0.0) SetWavelength(model, model.wavelength);
  result.reflections = ReflectionsOf(*block);
  return result;
}

}  // namespace talven
