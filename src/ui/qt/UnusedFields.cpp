#include "ui/qt/UnusedFields.h"

#include "ui/forms/FormCatalogue.h"
#include "ui/forms/PatternFields.h"

namespace talven {
namespace {

constexpr std::int32_t kOtherRadiation = 3;
constexpr int kMostIntense = 1012;
constexpr int kApplyLimit = 1015;
constexpr int kSpacingLimit = 1017;

}  // namespace

std::vector<FieldUse> DependentFields(const FormState& form) {
  switch (form.Spec().id) {
    case kPatternForm:
      return {{pattern_field::kWavelength, form.ChosenRadio(pattern_field::kRadiation) == kOtherRadiation},
              {pattern_field::kTwoThetaMax, form.IsSet(pattern_field::kTwoThetaMaxBox)}};
    case kComparisonForm:
      return {{kSpacingLimit, form.IsSet(kApplyLimit) || form.IsSet(kMostIntense)}};
    default:
      return {};
  }
}

}  // namespace talven
