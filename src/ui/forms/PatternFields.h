// The fields of the form of pattern properties, and the wavelength that its radio buttons choose.
#pragma once

#include <cstdint>

namespace talven::pattern_field {

inline constexpr int kRadiation = 1006;
inline constexpr int kSymmetrical = 1012;
inline constexpr int kWavelength = 1013;
inline constexpr int kStep = 1014;
inline constexpr int kTwoThetaMaxBox = 1015;
inline constexpr int kTwoThetaMax = 1016;
inline constexpr int kBroadening = 1017;
inline constexpr int kPowderCorrection = 1018;
inline constexpr int kHemisphere = 1024;
inline constexpr int kTwoThetaMin = 1030;

/// Those that only a simulation reads.
inline constexpr int kSimulationOnly[] = {kTwoThetaMax, kBroadening, kTwoThetaMaxBox, kPowderCorrection};

inline constexpr std::int32_t kCopper = 1;

/// Angstrom: that of copper for button 1, of molybdenum for 2, the other one for 3.
constexpr float ChosenWavelength(std::int32_t radiation, float other) {
  if (radiation == kCopper) return 1.54F;
  return radiation == 2 ? 0.71069F : other;
}

}  // namespace talven::pattern_field
