#include "ui/qt/UnusedFields.h"

#include "ui/forms/FormCatalogue.h"
#include "ui/forms/FormFields.h"

namespace talven {
namespace {

constexpr std::int32_t kOtherRadiation = 3;

}  // namespace

std::vector<FieldUse> DependentFields(const FormState& form) {
  switch (form.Spec().id) {
    case kPatternForm:
      return {{pattern_field::kWavelength, form.ChosenRadio(pattern_field::kRadiation) == kOtherRadiation},
              {pattern_field::kTwoThetaMax, form.IsSet(pattern_field::kTwoThetaMaxBox)}};
    case kComparisonForm:
      return {
          {comparison_field::kDSpace, form.IsSet(comparison_field::kApply) || form.IsSet(comparison_field::kMostInt)}};
    default:
      return {};
  }
}

}  // namespace talven
