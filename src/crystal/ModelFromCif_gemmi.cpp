#include "crystal/ModelFromCif.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <exception>
#include <gemmi/cif.hpp>
#include <gemmi/numb.hpp>
#include <gemmi/symmetry.hpp>
#include <map>
#include <optional>
#include <string_view>

#include "crystal/ScatteringTables.h"
#include "textio/FatalIoError.h"
#include "textio/FieldInput.h"
#include "textio/FixedText.h"
#include "textio/Record.h"

namespace talven {
namespace {

namespace cif = gemmi::cif;

constexpr double kUsualDisplacement = 0.05;
constexpr double kSquarePi8 = 78.956835208714864;
/// Angstrom. Coordinates on special positions are rounded, no more.
constexpr double kSpecialDistance = 0.05;

std::optional<double> NumberOf(const std::string& text) {
  const double value = cif::as_number(text);
  return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::optional<double> NumberOf(cif::Block& block, const std::string& tag) {
  // A single value, or the first of a loop.
  cif::Column column = block.find_values(tag);
  return column.item() != nullptr && column.length() > 0 ? NumberOf(column.at(0)) : std::nullopt;
}

std::optional<Lattice> LatticeOf(cif::Block& block) {
  const auto a = NumberOf(block, "_cell_length_a");
  const auto b = NumberOf(block, "_cell_length_b");
  const auto c = NumberOf(block, "_cell_length_c");
  if (!a || !b || !c) return std::nullopt;
  const auto angle = [&block](const char* tag) { return NumberOf(block, tag).value_or(90.0); };
  const Lattice lattice{*a, *b, *c, angle("_cell_angle_alpha"), angle("_cell_angle_beta"), angle("_cell_angle_gamma")};
  return lattice.IsValid() ? std::optional(lattice) : std::nullopt;
}

/// The block of the structure: with a cell, and with atoms if there is one.
cif::Block* FindBlock(cif::Document& document) {
  cif::Block* found = nullptr;
  for (cif::Block& block : document.blocks) {
    if (!LatticeOf(block)) continue;
    if (block.has_tag("_atom_site_fract_x")) return &block;
    if (found == nullptr) found = &block;
  }
  return found;
}

std::string TextOf(cif::Block& block, std::initializer_list<const char*> tags) {
  for (const char* const tag : tags)
    if (const std::string* const value = block.find_value(tag))
      if (!cif::is_null(*value)) return cif::as_string(*value);
  return {};
}

std::vector<SymmetryOperator> OperatorsOf(const gemmi::GroupOps& group) {
  std::vector<SymmetryOperator> operators;
  for (const gemmi::Op& op : group.all_ops_sorted()) {
    SymmetryOperator each;
    for (std::size_t i = 0; i < 3; ++i) {
      each.translation[i] = (op.tran[i] % gemmi::Op::DEN + gemmi::Op::DEN) % gemmi::Op::DEN;
      for (std::size_t j = 0; j < 3; ++j) each.rotation[i][j] = op.rot[i][j] / gemmi::Op::DEN;
    }
    operators.push_back(each);
  }
  return operators;
}

/// By the symbols of the space group, where no operators are listed.
std::vector<SymmetryOperator> OperatorsBySymbol(cif::Block& block) {
  const std::string hall = TextOf(block, {"_space_group_name_Hall", "_symmetry_space_group_name_Hall"});
  const std::string name = TextOf(block, {"_space_group_name_H-M_alt", "_symmetry_space_group_name_H-M"});
  try {
    if (!hall.empty()) return OperatorsOf(gemmi::symops_from_hall(hall.c_str()));
  } catch (const std::exception&) {
    // The symbol is none: the other one is left.
  }
  const gemmi::SpaceGroup* const group = name.empty() ? nullptr : gemmi::find_spacegroup_by_name(name);
  return group == nullptr ? std::vector<SymmetryOperator>() : OperatorsOf(group->operations());
}

SymmetryGroup SymmetryOf(cif::Block& block, const std::string& name, std::vector<std::string>& notices) {
  std::vector<SymmetryOperator> operators;
  for (const char* const tag :
       {"_space_group_symop_operation_xyz", "_symmetry_equiv_pos_as_xyz", "_space_group_symop.operation_xyz"}) {
    for (const std::string& text : block.find_values(tag)) {
      const auto each = ParseOperator(cif::as_string(text));
      if (!each)
        throw FatalIoError(name + ": expected a symmetry operator as -x, 1/2+y, -z, found " +
                           Quote(cif::as_string(text)));
      operators.push_back(*each);
    }
    if (!operators.empty()) break;
  }
  if (operators.empty()) operators = OperatorsBySymbol(block);
  if (operators.empty()) notices.push_back(name + ": no symmetry is told: P 1 is taken");
  SymmetryGroup group(operators);
  if (!group.IsGroup()) notices.push_back(name + ": the symmetry operators do not form a group");
  return group;
}

/// The element of a type symbol or label as `Fe3+` or `C12A`: its first two letters, else its first.
std::string ElementOf(std::string_view symbol) {
  std::size_t letters = 0;
  while (letters < symbol.size() && letters < 2 && std::isalpha(static_cast<unsigned char>(symbol[letters])) != 0)
    ++letters;
  for (; letters > 0; --letters)
    if (AtomicNumberOf(symbol.substr(0, letters)) > 0) return std::string(symbol.substr(0, letters));
  return {};
}

/// f' and f'' that are told for a type.
void ApplyDispersion(cif::Block& block, const std::string& type, Scatterer& scatterer) {
  for (const auto& row : block.find("_atom_type_", {"symbol", "scat_dispersion_real", "scat_dispersion_imag"})) {
    if (row.str(0) != type) continue;
    const auto f_prime = NumberOf(row[1]);
    const auto f_double_prime = NumberOf(row[2]);
    if (!f_prime || !f_double_prime) continue;
    scatterer.f_prime = *f_prime;
    scatterer.f_double_prime = *f_double_prime;
    scatterer.has_own_dispersion = true;
  }
}

using Tensors = std::map<std::string, std::array<double, 6>>;

/// U11 U22 U33 U23 U13 U12 by label; B are turned into U.
Tensors TensorsOf(cif::Block& block) {
  Tensors tensors;
  for (const char* const kind : {"U", "B"}) {
    std::vector<std::string> tags = {"label"};
    for (const char* const indices : {"_11", "_22", "_33", "_23", "_13", "_12"})
      tags.push_back(std::string(kind) + indices);
    for (const auto& row : block.find("_atom_site_aniso_", tags)) {
      std::array<double, 6> tensor = {};
      bool is_whole = true;
      for (std::size_t i = 0; i < tensor.size(); ++i) {
        const auto value = NumberOf(row[i + 1]);
        is_whole = is_whole && value;
        tensor[i] = value.value_or(0.0) / (*kind == 'B' ? kSquarePi8 : 1.0);
      }
      if (is_whole) tensors.emplace(row.str(0), tensor);
    }
  }
  return tensors;
}

/// Columns of the loop of atoms; those with a question mark may be missing.
enum AtomColumn : std::size_t { kLabel, kX, kY, kZ, kType, kU, kB, kOccupancy, kOrder, kMultiplicity, kGroup };
const std::vector<std::string> kAtomTags = {"label",
                                            "fract_x",
                                            "fract_y",
                                            "fract_z",
                                            "?type_symbol",
                                            "?U_iso_or_equiv",
                                            "?B_iso_or_equiv",
                                            "?occupancy",
                                            "?site_symmetry_order",
                                            "?site_symmetry_multiplicity",
                                            "?disorder_group"};

/// Takes the rows of the loop of atoms one after another.
class AtomLoop {
 public:
  AtomLoop(cif::Block& block, const std::string& name, CrystalModel& model)
      : block_(block), name_(name), tensors_(TensorsOf(block)), model_(model) {}

  /// False for a row without a position.
  bool Take(const cif::Table::Row& row) {
    Atom atom{.label = cif::as_string(row[kLabel])};
    for (const std::size_t column : {kX, kY, kZ}) {
      const auto value = NumberOf(row[column]);
      if (!value || std::fabs(*value) > 1000.0) return false;
      atom.position[column - kX] = *value;
    }
    atom.scatterer = ScattererOf(row.has2(kType) ? cif::as_string(row[kType]) : atom.label);
    SetDisplacement(row, atom);
    SetOccupancy(row, atom);
    if (row.has2(kGroup)) atom.part = static_cast<int>(ReadReal<float>(cif::as_string(row[kGroup])).value_or(0.0F));
    model_.atoms.push_back(std::move(atom));
    return true;
  }

 private:
  static std::optional<double> NumberIn(const cif::Table::Row& row, std::size_t column) {
    return row.has(column) ? NumberOf(row[column]) : std::nullopt;
  }

  std::size_t ScattererOf(const std::string& type) {
    const auto [known, is_new] = scatterers_.emplace(type, model_.scatterers.size());
    if (!is_new) return known->second;
    auto scatterer = FindScatterer(ElementOf(type));
    if (!scatterer) throw FatalIoError(name_ + ": expected the symbol of an element, found " + Quote(type));
    ApplyDispersion(block_, type, *scatterer);
    model_.scatterers.push_back(*std::move(scatterer));
    return known->second;
  }

  void SetDisplacement(const cif::Table::Row& row, Atom& atom) const {
    const auto u = NumberIn(row, kU);
    const auto b = NumberIn(row, kB);
    atom.u_isotropic = u ? *u : b ? *b / kSquarePi8 : kUsualDisplacement;
    const auto tensor = tensors_.find(atom.label);
    if (tensor == tensors_.end()) return;
    atom.is_anisotropic = true;
    atom.u = tensor->second;
    atom.u_isotropic = EquivalentIsotropic(atom.u, model_.lattice);
  }

  /// An occupancy in a CIF is that of the site, whatever its symmetry.
  void SetOccupancy(const cif::Table::Row& row, Atom& atom) const {
    const Site site = FindSite(atom.position, model_.symmetry, model_.lattice, kSpecialDistance);
    double order = site.multiplicity;
    if (const auto told = NumberIn(row, kOrder); told && *told >= 1.0)
      order = *told;
    else if (const auto copies = NumberIn(row, kMultiplicity); copies && *copies >= 1.0)
      order = static_cast<double>(model_.symmetry.Operators().size()) / *copies;
    if (order == site.multiplicity) atom.position = site.position;
    atom.occupancy = NumberIn(row, kOccupancy).value_or(1.0) / order;
  }

  cif::Block& block_;
  const std::string& name_;
  Tensors tensors_;
  CrystalModel& model_;
  std::map<std::string, std::size_t> scatterers_;
};

/// The rows of a `_refln_` loop with measured F squared as an HKL file, divided by a power of ten where they need it.
std::string ListOf(cif::Block& block) {
  struct Row {
    std::array<double, 3> index = {};
    double value = 0.0;
    double sigma = 0.0;
  };
  std::vector<Row> rows;
  double largest = 0.0;
  for (const auto& each :
       block.find("_refln_", {"index_h", "index_k", "index_l", "F_squared_meas", "?F_squared_sigma"})) {
    Row row;
    const auto value = NumberOf(each[3]);
    bool is_whole = value.has_value();
    for (std::size_t i = 0; i < 3; ++i) {
      const auto index = NumberOf(each[i]);
      is_whole = is_whole && index && std::fabs(*index) < 1000.0;
      row.index[i] = index.value_or(0.0);
    }
    if (!is_whole) continue;
    row.value = *value;
    row.sigma = each.has(4) ? NumberOf(each[4]).value_or(0.0) : 0.0;
    largest = std::max({largest, std::fabs(row.value), std::fabs(row.sigma)});
    rows.push_back(row);
  }
  double divisor = 1.0;
  while (largest / divisor > 9999.0) divisor *= 10.0;
  std::string text;
  for (const Row& row : rows) {
    Record record;
    for (const double index : row.index) record.I(std::lround(index), 4);
    text.append(record.F(row.value / divisor, 8, 2).F(row.sigma / divisor, 8, 2).Text()).append("\n");
  }
  return text;
}

std::string ReflectionsOf(cif::Block& block) {
  std::string text = TextOf(block, {"_shelx_hkl_file", "_iucr_refine_reflections_details"});
  if (text.empty()) return ListOf(block);
  text.erase(0, text.find_first_not_of("\r\n"));
  return text;
}

cif::Document Parse(const TextInput& text) {
  try {
    return cif::read_memory(text.Content().data(), text.Content().size(), text.Name().c_str());
  } catch (const std::exception& error) {
    throw FatalIoError(text.Name() + ": expected a CIF, found what is none: " + error.what());
  }
}

}  // namespace

CifStructure ModelFromCif(const TextInput& text) {
  cif::Document document = Parse(text);
  cif::Block* const block = FindBlock(document);
  if (block == nullptr) throw FatalIoError(text.Name() + ": expected a data block with a cell, found none");
  CifStructure result;
  CrystalModel& model = result.model;
  model.title = block->name;
  model.lattice = *LatticeOf(*block);
  model.symmetry = SymmetryOf(*block, text.Name(), result.notices);
  AtomLoop atoms(*block, text.Name(), model);
  std::size_t passed_over = 0;
  for (const auto& row : block->find("_atom_site_", kAtomTags)) passed_over += !atoms.Take(row);
  if (passed_over > 0)
    result.notices.push_back(text.Name() + ": " + std::to_string(passed_over) +
                             " atoms without a position are passed over");
  model.wavelength = NumberOf(*block, "_diffrn_radiation_wavelength").value_or(0.0);
  if (model.wavelength > 0.0) SetWavelength(model, model.wavelength);
  result.reflections = ReflectionsOf(*block);
  return result;
}

}  // namespace talven
