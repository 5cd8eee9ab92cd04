#include "app/run/FormOption.h"

#include "app/run/InputPath.h"
#include "app/run/OptionText.h"
#include "textio/LetterCase.h"
#include "ui/forms/FormCatalogue.h"
#include "ui/forms/FormFields.h"
#include "ui/forms/FormState.h"

namespace talven {
namespace {

constexpr int kMolybdenum = 2;

}  // namespace

float PatternFieldValue(std::string_view option, int field, const std::string& text) {
  FormState form(*FindForm(kPatternForm));
  if (const auto wanted = form.Refusal(field, text)) RefuseOption(option, *wanted, text);
  form.EditText(field, text);
  return form.Real(field);
}

float WavelengthValue(std::string_view option, const std::string& text, std::string_view more) {
  using namespace pattern_field;
  const std::string word = ToLower(text);
  if (word == "cu") return ChosenWavelength(kCopper, 0.0F);
  if (word == "mo") return ChosenWavelength(kMolybdenum, 0.0F);
  FormState form(*FindForm(kPatternForm));
  if (const auto wanted = form.Refusal(kWavelength, text))
    RefuseOption(option, std::string("Cu, Mo, ").append(more).append("or ").append(*wanted), text);
  form.EditText(kWavelength, text);
  return form.Real(kWavelength);
}

}  // namespace talven
