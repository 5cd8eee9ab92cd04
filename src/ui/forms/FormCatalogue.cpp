#include "ui/forms/FormCatalogue.h"

#include <array>

#include "ui/forms/FormFields.h"

namespace talven {
namespace {

using enum FieldKind;

constexpr FieldSpec Static(int id, std::string_view text, Geometry at) {
  return {.id = id, .kind = kStatic, .text = text, .geometry = at};
}
constexpr FieldSpec GroupBox(int id, std::string_view text, Geometry at) {
  return {.id = id, .kind = kGroupBox, .text = text, .geometry = at};
}
constexpr FieldSpec Button(int id, std::string_view text, Geometry at) {
  return {.id = id, .kind = kButton, .text = text, .geometry = at};
}
constexpr FieldSpec Check(int id, std::string_view text, bool is_set, Geometry at) {
  return {.id = id, .kind = kCheck, .text = text, .geometry = at, .is_set = is_set};
}
constexpr FieldSpec Radio(int id, std::string_view text, bool is_set, Geometry at) {
  return {.id = id, .kind = kRadio, .text = text, .geometry = at, .is_set = is_set};
}
constexpr FieldSpec FirstRadio(int id, std::string_view text, bool is_set, Geometry at) {
  return {.id = id, .kind = kRadio, .text = text, .geometry = at, .is_set = is_set, .begins_group = true};
}
constexpr FieldSpec Edit(int id, std::string_view label, std::string_view text, Geometry at) {
  return {.id = id, .kind = kEdit, .text = text, .geometry = at, .label = label};
}
constexpr FieldSpec RealEdit(int id, std::string_view label, std::string_view text, Range range, RealFormat format,
                             Geometry at) {
  return {.id = id, .kind = kRealEdit, .text = text, .geometry = at, .label = label, .range = range, .format = format};
}
constexpr FieldSpec IntegerEdit(int id, std::string_view label, std::string_view text, Range range, Geometry at) {
  return {.id = id, .kind = kIntegerEdit, .text = text, .geometry = at, .label = label, .range = range};
}
constexpr FieldSpec IntegerSpin(int id, std::string_view label, std::string_view text, Geometry at) {
  return {.id = id, .kind = kIntegerSpin, .text = text, .geometry = at, .label = label};
}

constexpr Range kAnyValue;

constexpr std::array kBannerFields = {
    Static(1001, "TALVEN  X", {56, 16, 42, 8}),
    Static(1002, "Utility Program for", {44, 32, 66, 12}),
    Static(1003, "X-Ray Powder Diffraction", {34, 48, 90, 12}),
    Static(1004, "by the Talven developers", {28, 68, 102, 12}),
};

constexpr std::array kJobNameFields = {
    Static(1001, "Enter Jobname", {55, 24, 50, 12}),
    Edit(job_name_field::kJobName, "Jobname", "String", {28, 48, 103, 14}),
    Button(kOkButton, "OK", {60, 80, 40, 14}),
};

constexpr std::array kOptionFields = {
    GroupBox(1023, "Shelx HKL and FCF to POWDER data", {14, 28, 144, 38}),
    Static(1001, "TALVEN   Options", {123, 12, 70, 8}),
    FirstRadio(option_field::kOption, "HKL  >>>>>>>>> ING, CPI, XY, PAT", true, {22, 40, 130, 10}),
    Radio(1007, "CIF  >>>>>>>>>> ING", false, {172, 72, 120, 10}),
    Radio(1008, "ING  >>>>>>>>> CIF", false, {22, 72, 130, 10}),
    Radio(1009, "Reformat ING", false, {22, 96, 74, 10}),
    Radio(1010, "INS >>>>>>>>>> ING/DUMMY.HKL", false, {172, 40, 128, 10}),
    Radio(1011, "FCF (LIST 4) >>> HKL", false, {172, 52, 86, 10}),
    Radio(1022, "FCF (LIST 4) >>> ING, CPI, XY, PAT", false, {22, 52, 130, 10}),
    Radio(1031, "ING  >>>>>>>>> ASCII (Unscrambler)", false, {22, 84, 130, 10}),
    Radio(1035, "XY (TXT) >>>>>> ING", false, {172, 84, 100, 10}),
    Button(kExitButton, "EXIT", {200, 120, 40, 14}),
    GroupBox(1025, "Shelx INS to POWDER (AUTO for VRAIL)", {164, 28, 144, 38}),
    Check(option_field::kCompare, "Compare Powder Patterns", false, {172, 96, 96, 10}),
    Button(kOkButton, "OK", {76, 120, 40, 14}),
};

constexpr std::array kPatternFields = {
    Static(1004, "Powder Pattern Properties", {34, 12, 88, 8}),
    GroupBox(1023, "Radiation Wavelength", {14, 28, 130, 48}),
    FirstRadio(pattern_field::kRadiation, "Cu 1.54", true, {24, 44, 40, 12}),
    Radio(1007, "Mo .71069", false, {24, 59, 48, 12}),
    Radio(1008, "Other", false, {87, 45, 40, 12}),
    RealEdit(pattern_field::kWavelength, "Wavelength of Other", "0.710690", {0.1, 3.5}, {9, 6}, {88, 59, 40, 12}),
    Static(1002, "STEP Size", {52, 84, 44, 12}),
    RealEdit(pattern_field::kStep, "STEP Size", "0.050", {0.001, 5.0}, {5, 3}, {102, 82, 40, 12}),
    Static(1026, "2Theta Min", {56, 106, 40, 8}),
    RealEdit(pattern_field::kTwoThetaMin, "2Theta Min", "4.000", {0.5, 40.0}, {7, 3}, {102, 104, 40, 12}),
    Check(pattern_field::kTwoThetaMaxBox, "Set 2Theta Max. to", false, {22, 123, 78, 14}),
    RealEdit(pattern_field::kTwoThetaMax, "2Theta Max.", "40.000", {0.001, 360.0}, {7, 3}, {102, 123, 40, 14}),
    Static(1003, "Broadening Fact. 1. - 10.", {20, 145, 82, 12}),
    RealEdit(pattern_field::kBroadening, "Broadening Fact.", "1.0", {1.0, 10.0}, {4, 1}, {102, 143, 40, 14}),
    Check(pattern_field::kPowderCorrection, "Apply Powder Correction", true, {32, 167, 96, 12}),
    Check(pattern_field::kSymmetrical, "Symmetrical Peaks", true, {32, 183, 84, 12}),
    Check(pattern_field::kHemisphere, "Hemisphere Expansion", true, {32, 199, 86, 12}),
    Button(kOkButton, "OK", {60, 223, 40, 14}),
};

constexpr std::array kAbsenceFields = {
    Static(1001, "Choose General Absence", {32, 20, 96, 8}),
    FirstRadio(absence_field::kLattice, "A", false, {68, 40, 24, 14}),
    Radio(1007, "B", false, {68, 56, 24, 14}),
    Radio(1008, "C", true, {68, 72, 24, 14}),
    Radio(1009, "F", false, {68, 88, 24, 14}),
    Radio(1010, "I", false, {68, 104, 24, 14}),
    Button(kOkButton, "OK", {60, 128, 40, 14}),
};

constexpr std::array kIndexLimitFields = {
    Check(index_limit_field::kRemoveAbsence, "Remove a General Absence", false, {32, 16, 104, 14}),
    Static(1001, "h Max", {46, 36, 30, 12}),
    Static(1002, "k Max", {46, 52, 30, 12}),
    Static(1003, "l Max", {46, 68, 30, 12}),
    IntegerSpin(index_limit_field::kHMax, "h Max", "0", {78, 36, 42, 14}),
    IntegerSpin(index_limit_field::kKMax, "k Max", "0", {78, 52, 42, 14}),
    IntegerSpin(index_limit_field::kLMax, "l Max", "0", {78, 68, 42, 14}),
    Button(kOkButton, "OK", {64, 96, 40, 14}),
};

constexpr std::array kUnsuitableFields = {
    Static(1001, "The INS file is unsuitable", {20, 12, 82, 8}),
    Static(1002, "It must be a valid SHELX file", {20, 24, 92, 8}),
    Static(1003, "for use with SHELXL", {20, 36, 68, 8}),
    Static(1004, "The following instructions are required", {20, 52, 122, 8}),
    Static(1026, "ZERR, SFAC and UNIT", {20, 64, 82, 8}),
    Static(1027, "It is also necessary to add", {20, 76, 84, 8}),
    Static(1028, "the Space Group SYMM OPs", {20, 88, 98, 8}),
    Static(1029, "using HAVRIL", {20, 100, 54, 8}),
    Button(kOkButton, "OK", {60, 120, 40, 14}),
};

constexpr std::array kComparisonFields = {
    Static(1003, "Corvane Match", {52, 12, 56, 8}),
    Static(1001, "Peak Error (Deg.)", {24, 32, 58, 8}),
    RealEdit(comparison_field::kAngTol, "Peak Error (Deg.)", "0.30", {0.01, 1.5}, {5, 2}, {84, 30, 26, 12}),
    Static(1026, "NMF", {63, 48, 18, 8}),
    RealEdit(comparison_field::kNmf, "NMF", "0.33", {0.01, 0.9}, {5, 2}, {84, 46, 26, 12}),
    Static(1002, "SAF", {63, 63, 15, 8}),
    RealEdit(comparison_field::kSaf, "SAF", "0.25", {0.02, 0.99}, {5, 2}, {84, 61, 26, 12}),
    Static(1027, "T4M", {63, 78, 16, 8}),
    IntegerEdit(comparison_field::kT4m, "T4M", "2", {1, 5}, {94, 76, 16, 12}),
    Static(1029, "Bsep", {63, 92, 20, 8}),
    RealEdit(comparison_field::kBSep, "Bsep", "2.80", kAnyValue, {6, 2}, {84, 91, 26, 12}),
    Static(1032, "Btrs", {63, 109, 18, 8}),
    IntegerEdit(comparison_field::kBtres, "Btrs", "10000", {100, 90000}, {84, 108, 30, 12}),
    Static(1033, "Berr", {63, 126, 16, 8}),
    RealEdit(comparison_field::kBerr, "Berr", "1.50", {0.1, 10.0}, {5, 2}, {84, 124, 26, 12}),
    GroupBox(1023, "Large d space limit", {21, 145, 118, 43}),
    RealEdit(comparison_field::kDSpace, "Large d space limit", "8.00", {1.0, 99.0}, {5, 2}, {33, 158, 26, 12}),
    Static(1028, "Angst.", {63, 160, 24, 8}),
    Check(comparison_field::kMostInt, "Most Int.", false, {90, 158, 44, 12}),
    Check(comparison_field::kApply, "Apply", false, {60, 173, 40, 12}),
    Check(comparison_field::kVerbose, "Verbose", false, {60, 197, 40, 12}),
    Button(kOkButton, "OK", {60, 223, 40, 14}),
};

constexpr std::array kForms = {
    FormSpec{kBannerForm, 160, 119, kBannerFields},         FormSpec{kJobNameForm, 160, 120, kJobNameFields},
    FormSpec{kOptionForm, 316, 149, kOptionFields},         FormSpec{kPatternForm, 160, 249, kPatternFields},
    FormSpec{kAbsenceForm, 160, 158, kAbsenceFields},       FormSpec{kIndexLimitForm, 167, 125, kIndexLimitFields},
    FormSpec{kUnsuitableForm, 160, 146, kUnsuitableFields}, FormSpec{kComparisonForm, 160, 254, kComparisonFields},
};

}  // namespace

const FormSpec* FindForm(int id) {
  for (const FormSpec& form : kForms)
    if (form.id == id) return &form;
  return nullptr;
}

}  // namespace talven
