#include "crystal/SpaceGroupSymbols.h"

#include <exception>
#include <gemmi/symmetry.hpp>

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

}  // namespace

std::vector<SymmetryOperator> OperatorsBySymbol(const std::string& hall, const std::string& hermann_mauguin) {
  try {
    if (!hall.empty()) return OperatorsOf(gemmi::symops_from_hall(hall.c_str()));
  } catch (const std::exception&) {
    // No Hall symbol: the other one is left.
  }
  if (hermann_mauguin.empty()) return {};
  const gemmi::SpaceGroup* const group = gemmi::find_spacegroup_by_name(hermann_mauguin);
  return group == nullptr ? std::vector<SymmetryOperator>() : OperatorsOf(group->operations());
}

}  // namespace talven
