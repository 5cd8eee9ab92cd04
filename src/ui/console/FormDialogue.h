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

/// Takes a line that is no answer in the sense of AnswerForm as the value of a form's only text field, so that a job
/// name can simply be typed. False, and nothing done, for any other line or form.
bool FillOnlyText(FormState& form, std::string_view line);

/// What can be answered to a form, one line for each way, with an example from the form.
std::string FormHelp(const FormState& form);

/// The button that the end of the input presses: exit where the form has it, else ok.
int ButtonAtEnd(const FormState& form);

}  // namespace talven
