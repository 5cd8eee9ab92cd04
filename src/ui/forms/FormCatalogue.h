// The forms of the program, as data.
#pragma once

#include <string_view>

#include "ui/forms/FormSpec.h"

namespace talven {

inline constexpr int kBannerForm = 101;
inline constexpr int kJobNameForm = 102;
inline constexpr int kOptionForm = 103;
inline constexpr int kPatternForm = 104;
inline constexpr int kAbsenceForm = 105;
inline constexpr int kIndexLimitForm = 106;
inline constexpr int kUnsuitableForm = 107;
inline constexpr int kComparisonForm = 108;

/// The form with an id from 101 to 108; null for any other.
const FormSpec* FindForm(int id);

/// String 20001, the file filter of the job's folder: pairs of description and pattern.
inline constexpr std::string_view kJobFileFilter =
    "SHELX file .HKL|*.HKL|KESTRA file .ING|*.ING|SHELX file .INS|*.INS|ALL files |*.*|";

}  // namespace talven
