#include <array>
#include <cmath>
#include <cstdint>  // Before gemmi, of which some versions need it and leave it out.
#include <gemmi/elem.hpp>
#include <gemmi/fprime.hpp>
#include <gemmi/it92.hpp>
#include <string>

#include "crystal/ScatteringTables.h"

namespace talven {
namespace {

constexpr double kElectronvoltAngstrom = 12398.419843320026;
/// Angstrom. Beyond these the tables of absorption that f' and f'' come from have no values.
constexpr double kShortest = 0.1;
constexpr double kLongest = 12.0;
constexpr int kLastDispersive = 92;

gemmi::El ElementOf(std::string_view symbol) {
  if (symbol.empty() || symbol.size() > 2) return gemmi::El::X;
  const gemmi::El element = gemmi::find_element(std::string(symbol).c_str());
  return element == gemmi::El::D ? gemmi::El::H : element;
}

/// Of the neutral atom; later versions of gemmi ask for the charge.
template <typename Table>
const auto& NeutralCoefficients(gemmi::El element) {
  if constexpr (requires { Table::get(element); })
    return Table::get(element);
  else
    return Table::get(element, 0);
}

void SetDispersion(Scatterer& scatterer, double wavelength) {
  scatterer.f_prime = 0.0;
  scatterer.f_double_prime = 0.0;
  if (!(wavelength >= kShortest && wavelength <= kLongest)) return;
  if (scatterer.atomic_number < 3 || scatterer.atomic_number > kLastDispersive) return;
  scatterer.f_prime =
      gemmi::cromer_liberman(scatterer.atomic_number, kElectronvoltAngstrom / wavelength, &scatterer.f_double_prime);
}

}  // namespace

bool HasScatteringTables() {
  return true;
}

int AtomicNumberOf(std::string_view symbol) {
  return static_cast<int>(ElementOf(symbol));
}

std::optional<Scatterer> FindScatterer(std::string_view label) {
  const gemmi::El element = ElementOf(label);
  if (element == gemmi::El::X || !gemmi::IT92<double>::has(element)) return std::nullopt;
  Scatterer result{.label = std::string(label), .atomic_number = static_cast<int>(element), .form = {}};
  const auto& coefficients = NeutralCoefficients<gemmi::IT92<double>>(element);
  for (int i = 0; i < 4; ++i) {
    result.form.a[static_cast<std::size_t>(i)] = coefficients.a(i);
    result.form.b[static_cast<std::size_t>(i)] = coefficients.b(i);
  }
  result.form.c = coefficients.c();
  return result;
}

void SetWavelength(CrystalModel& model, double wavelength) {
  const bool is_own = std::fabs(wavelength - model.wavelength) <= 0.01 * model.wavelength;
  for (Scatterer& scatterer : model.scatterers)
    if (!scatterer.has_own_dispersion || (!is_own && scatterer.atomic_number > 0)) SetDispersion(scatterer, wavelength);
  model.wavelength = wavelength;
}

}  // namespace talven
