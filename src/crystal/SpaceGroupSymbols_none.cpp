#include "crystal/SpaceGroupSymbols.h"

namespace talven {

SpaceGroupSetting OperatorsBySymbol(const SpaceGroupNames& /*names*/, const Lattice& /*lattice*/) {
  return {};
}

}  // namespace talven
