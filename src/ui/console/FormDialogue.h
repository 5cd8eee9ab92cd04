// A form as a terminal shows and fills it.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

#include "ui/forms/FormState.h"

namespace talven {

/// Prints `[form 104]` and then each field of the form with id, label and present value, and for a numeric field its
/// range.
void PrintForm(const FormState& form, std::ostream& messages);

/// What came of one answer to a form.
struct FormAnswer {
  /// The button that ends the form, if the answer pressed one.
  std::optional<int> button;
  /// Why the answer was refused and what would be accepted; the form is then as it was.
  std::string refusal;
};

/// Takes `ok`, `exit` or `ID=VALUE`.
FormAnswer AnswerForm(FormState& form, std::string_view answer);

/// The button that the end of the input presses: exit where the form has it, else ok.
int ButtonAtEnd(const FormState& form);

}  // namespace talven
