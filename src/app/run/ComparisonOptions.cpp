#include "app/run/ComparisonOptions.h"

#include <array>

#include "app/run/OptionText.h"
#include "ui/forms/FormCatalogue.h"
#include "ui/forms/FormFields.h"
#include "ui/forms/FormState.h"

namespace talven {
namespace {

namespace field = comparison_field;

struct NumberOption {
  const char* name;
  int field;
  float ComparisonSettings::*setting;
  /// Of the setting to what the form shows.
  float factor;
  const char* help;
};

constexpr std::array kNumbers = {
    NumberOption{"--angtol", field::kAngTol, &ComparisonSettings::AngTol, 1.0F, "peaks match if less apart, degrees"},
    NumberOption{"--nmf", field::kNmf, &ComparisonSettings::NMF, 1.0F, "largest share of reference peaks unmatched"},
    NumberOption{"--saf", field::kSaf, &ComparisonSettings::SAF, 1.0F, "largest difference of the areas, as a share"},
    NumberOption{"--t4m", field::kT4m, &ComparisonSettings::T4M, 1.0F, "matches wanted among the four strongest"},
    NumberOption{"--bsep", field::kBSep, &ComparisonSettings::BSep, 1.0F, "gap that parts two bands, degrees"},
    NumberOption{"--btrs", field::kBtres, &ComparisonSettings::Btres, 1.0F, "least intensity of a peak in a band"},
    NumberOption{"--berr", field::kBerr, &ComparisonSettings::Berr, 2.0F, "half the tolerance of a band match"},
    NumberOption{"--dspace", field::kDSpace, &ComparisonSettings::DSPACE, 1.0F, "limit of large d, Angstrom"},
};

bool IsWhole(int id) {
  return FindForm(kComparisonForm)->Find(id)->kind == FieldKind::kIntegerEdit;
}

float ValueOf(const FormState& form, const NumberOption& option) {
  const float shown = IsWhole(option.field) ? Store(form.Integer(option.field)) : form.Real(option.field);
  return option.factor * shown;
}

}  // namespace

ComparisonSettings FirstComparisonSettings() {
  ComparisonSettings settings;
  FormState form(*FindForm(kComparisonForm));
  for (const NumberOption& option : kNumbers) {
    const float shown = settings.*option.setting / option.factor;
    // A field keeps its own value where it refuses one.
    if (IsWhole(option.field)) {
      form.PutInteger(option.field, NearestWhole(shown));
    } else {
      form.PutReal(option.field, shown);
    }
    settings.*option.setting = ValueOf(form, option);
  }
  return settings;
}

void AddComparisonOptions(CLI::App& app, ComparisonSettings& settings) {
  for (const NumberOption& option : kNumbers)
    AddOption(
        app, option.name, "X",
        [&option, &settings](const std::string& text) {
          FormState form(*FindForm(kComparisonForm));
          if (const auto wanted = form.Refusal(option.field, text)) RefuseOption(option.name, *wanted, text);
          form.EditText(option.field, text);
          settings.*option.setting = ValueOf(form, option);
        },
        option.help);
  AddSwitch(app, "--most-int", settings.MostInt, "the form's Most Int.");
  AddSwitch(app, "--apply", settings.Apply, "applies the limit of large d");
  AddSwitch(app, "--verbose", settings.Verbose, "a verbose log");
}

}  // namespace talven
