// The fields of the form of comparison settings.
#pragma once

namespace talven::comparison_field {

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

}  // namespace talven::comparison_field
