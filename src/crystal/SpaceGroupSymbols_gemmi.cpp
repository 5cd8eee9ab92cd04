#include "crystal/SpaceGroupSymbols.h"

#include <algorithm>
#include <array>
#include <exception>
#include <gemmi/symmetry.hpp>
#include <iterator>
#include <string_view>
#include <utility>

namespace talven {
namespace {

std::vector<SymmetryOperator> OperatorsOf(const gemmi::GroupOps& group) {
  static_assert(gemmi::Op::DEN == SymmetryOperator::kParts);
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

/// Without brackets, underlines and tildes about screw axes; what else stands in brackets is a remark.
std::string WithoutMarks(std::string_view symbol) {
  std::string plain;
  for (std::size_t i = 0; i < symbol.size(); ++i) {
    const bool is_digit_next = i + 1 < symbol.size() && symbol[i + 1] >= '0' && symbol[i + 1] <= '9';
    if (symbol[i] == '(' && !is_digit_next) break;
    if (std::string_view("()_~").find(symbol[i]) == std::string_view::npos) plain += symbol[i];
  }
  plain.erase(plain.find_last_not_of(' ') + 1);
  return plain;
}

/// The setting at the end of a symbol, as databases write it, in gemmi's way: `R -3 H` is `R -3:H`.
std::string WithSetting(std::string symbol) {
  constexpr std::array<std::pair<std::string_view, std::string_view>, 6> kSettings = {
      {{"H", ":H"}, {"R", ":R"}, {"S", ":1"}, {"Z", ":2"}, {"O1", ":1"}, {"O2", ":2"}}};
  if (symbol.find(':') != std::string::npos) return symbol;
  for (const auto& [end, setting] : kSettings)
    if (symbol.size() > end.size() && symbol.ends_with(end))
      return symbol.substr(0, symbol.size() - end.size()).append(setting);
  return symbol;
}

/// The symbol of a cubic group with the sign that it has had since 1983: `F m 3 m` is `F m -3 m`. Others stay.
std::string WithInversionSign(std::string symbol) {
  const std::size_t three = symbol.find('3');
  if (three == std::string::npos || three == 0) return symbol;
  const std::size_t before = symbol.find_last_not_of(' ', three - 1);
  if (before == std::string::npos || before == 0) return symbol;
  if (std::string_view("mnad").find(symbol[before]) == std::string_view::npos) return symbol;
  return symbol.insert(three, "-");
}

SpaceGroupSetting SettingOf(const gemmi::SpaceGroup& group, bool is_assumed) {
  return {.operators = OperatorsOf(group.operations()), .assumed = is_assumed ? group.xhm() : std::string()};
}

const gemmi::SpaceGroup* GroupByName(const std::string& name, const Lattice& lattice) {
  return gemmi::find_spacegroup_by_name(name, lattice.alpha, lattice.gamma);
}

SpaceGroupSetting SettingByName(const std::string& name, const Lattice& lattice) {
  const gemmi::SpaceGroup* const group = GroupByName(name, lattice);
  if (group == nullptr) return {};
  const bool has_two_origins = group->ext == '1' || group->ext == '2';
  return SettingOf(*group, has_two_origins && name.find(':') == std::string::npos);
}

SpaceGroupSetting SettingByNumber(int number, const Lattice& lattice) {
  if (number < 1 || number > 230) return {};
  const gemmi::SpaceGroup* const standard = gemmi::find_spacegroup_by_number(number);
  const gemmi::SpaceGroup* const group = standard == nullptr ? nullptr : GroupByName(standard->hm, lattice);
  if (group == nullptr) return {};
  const auto settings =
      std::count_if(std::begin(gemmi::spacegroup_tables::main), std::end(gemmi::spacegroup_tables::main),
                    [number](const gemmi::SpaceGroup& each) { return each.number == number; });
  return SettingOf(*group, settings > 1);
}

}  // namespace

SpaceGroupSetting OperatorsBySymbol(const SpaceGroupNames& names, const Lattice& lattice) {
  try {
    if (!names.hall.empty())
      return {.operators = OperatorsOf(gemmi::symops_from_hall(names.hall.c_str())), .assumed = {}};
  } catch (const std::exception&) {
    // No Hall symbol: the others are left.
  }
  const std::string symbol = WithSetting(WithoutMarks(names.hermann_mauguin));
  for (const std::string& spelling : {symbol, WithInversionSign(symbol)})
    if (SpaceGroupSetting setting = SettingByName(spelling, lattice); !setting.operators.empty()) return setting;
  return SettingByNumber(names.number, lattice);
}

}  // namespace talven
