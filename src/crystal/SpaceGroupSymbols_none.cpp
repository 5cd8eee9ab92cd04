#include "crystal/SpaceGroupSymbols.h"

namespace talven {

std::vector<SymmetryOperator> OperatorsBySymbol(const std::string& /*hall*/, const std::string& /*hermann_mauguin*/) {
  return {};
}

}  // namespace talven
