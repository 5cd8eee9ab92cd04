// The ids of the fields that the program fills and reads, form by form. A radio group goes by its first button.
#pragma once

#include <cstdint>

namespace talven {

namespace job_name_field {
inline constexpr int kJobName = 1005;
}

namespace option_field {
inline constexpr int kOption = 1006;
inline constexpr int kCompare = 1015;
}  // namespace option_field

namespace pattern_field {

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

}  // namespace pattern_field

namespace absence_field {
inline constexpr int kLattice = 1006;
}

namespace index_limit_field {
inline constexpr int kRemoveAbsence = 1015;
inline constexpr int kHMax = 1019;
inline constexpr int kKMax = 1020;
inline constexpr int kLMax = 1021;
}  // namespace index_limit_field

namespace comparison_field {
inline constexpr int kMostInt = 1012;
inline constexpr int kAngTol = 1013;
inline constexpr int kSaf = 1014;
inline constexpr int kApply = 1015;
inline constexpr int kNmf = 1016;
inline constexpr int kDSpace = 1017;
inline constexpr int kVerbose = 1018;
inline constexpr int kT4m = 1019;
inline constexpr int kBtres = 1020;
inline constexpr int kBSep = 1030;
inline constexpr int kBerr = 1034;
}  // namespace comparison_field

}  // namespace talven
