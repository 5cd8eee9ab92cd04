#include "crystal/ScatteringTables.h"

namespace talven {

bool HasScatteringTables() {
  return false;
}

int AtomicNumberOf(std::string_view /*symbol*/) {
  return 0;
}

std::optional<Scatterer> FindScatterer(std::string_view /*label*/) {
  return std::nullopt;
}

void SetWavelength(CrystalModel& model, double wavelength) {
  model.wavelength = wavelength;
}

}  // namespace talven
