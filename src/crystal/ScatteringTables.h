// Scattering factors of the elements, and their dispersion at a wavelength.
#pragma once

#include <optional>
#include <string_view>

#include "crystal/CrystalModel.h"

namespace talven {

/// False in a program that was built without the tables: there no element is found.
bool HasScatteringTables();

/// Atomic number by element symbol, in either case; D is hydrogen. 0 if there is no such element.
int AtomicNumberOf(std::string_view symbol);

/// Scattering factor of an element (International Tables for Crystallography, volume C, table 6.1.1.4), with no
/// dispersion yet. Nothing if the table has no such element. `label` stays as it is.
std::optional<Scatterer> FindScatterer(std::string_view label);

/// Sets f' and f'' of all scatterers to those at a wavelength in Angstrom (Cromer and Liberman, Acta Cryst. A37 (1981)
/// 267), and the wavelength of the model. Values that came with the model stay where the wavelength is the model's
/// own to 1 %; one whose element is not known keeps them at all wavelengths. Below z = 3 there is no dispersion.
void SetWavelength(CrystalModel& model, double wavelength);

}  // namespace talven
